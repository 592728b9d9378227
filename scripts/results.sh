# shellcheck shell=bash
# Functions that run the steps of ./test and count their results; to be sourced by bash. Every step counts at least
# once: one that dies without a result has failed.

PASSED=0
FAILED=0

# passed TEXT [COUNT]
passed() {
    PASSED=$((PASSED + ${2:-1}))
    printf '%6ss  ok      %s\n' "$SECONDS" "$1"
}

# failed TEXT [LOG [COUNT]]: the end of the log goes to the screen.
failed() {
    FAILED=$((FAILED + ${3:-1}))
    printf '%6ss  FAILED  %s\n' "$SECONDS" "$1"
    if [ -s "${2:-}" ]; then
        tail -n 60 "$2" | tr -d '\r' | sed 's/^/    /'
        echo "    (all of it: $2)"
    fi
}

log_of() {
    printf '%s/%s.log' "$LOGS" "$(printf '%s' "$1" | tr -cs 'A-Za-z0-9' '-')"
}

# built PRESET: builds it; only a failure counts.
built() {
    if build "$1"; then
        printf '%6ss  built   %s\n' "$SECONDS" "$1"
    else
        failed "building $1"
        return 1
    fi
}

# check NAME COMMAND...: one result by the exit status.
check() {
    local name=$1 log
    shift
    log=$(log_of "$name")
    if timeout -k 10 1800 "$@" </dev/null >"$log" 2>&1; then passed "$name"; else failed "$name" "$log"; fi
}

# cases NAME SECONDS COMMAND...: a doctest program; each of its test cases counts. A skipped one has not passed.
cases() {
    local name=$1 limit=$2 log status=0 line bad
    shift 2
    log=$(log_of "$name")
    timeout -k 10 "$limit" "$@" --no-colors=true </dev/null >"$log" 2>&1 || status=$?
    line=$(tr -d '\r' <"$log" | grep -a '^\[doctest\] test cases:' | tail -n 1)
    if [[ $line =~ cases:\ *([0-9]+)\ *\|\ *([0-9]+)\ passed\ *\|\ *([0-9]+)\ failed\ *\|\ *([0-9]+)\ skipped ]]; then
        bad=$((BASH_REMATCH[3] + BASH_REMATCH[4]))
        if [ "$bad" -eq 0 ] && { [ "$status" -ne 0 ] || [ "${BASH_REMATCH[2]}" -eq 0 ]; }; then bad=1; fi
        if [ "$bad" -eq 0 ]; then
            passed "$name: ${BASH_REMATCH[2]} test cases" "${BASH_REMATCH[2]}"
        else
            PASSED=$((PASSED + BASH_REMATCH[2]))
            failed "$name: $bad of ${BASH_REMATCH[1]}, exit status $status" "$log" "$bad"
        fi
    else
        failed "$name: ended without a result, exit status $status" "$log"
    fi
}

# chosen NAME SECONDS NUMBER COMMAND...: a doctest program that is to run only NUMBER of its test cases; each counts.
chosen() {
    local name=$1 limit=$2 number=$3 log status=0 line
    shift 3
    log=$(log_of "$name")
    timeout -k 10 "$limit" "$@" --no-colors=true </dev/null >"$log" 2>&1 || status=$?
    line=$(tr -d '\r' <"$log" | grep -a '^\[doctest\] test cases:' | tail -n 1)
    if [ "$status" -eq 0 ] && [[ $line =~ cases:\ *$number\ *\|\ *$number\ passed\ *\|\ *0\ failed\ * ]]; then
        passed "$name: $number test cases" "$number"
    else
        failed "$name: exit status $status, ${line:-no result}" "$log"
    fi
}

# counted NAME SECONDS COMMAND...: a program whose last line is "N passed, M failed".
counted() {
    local name=$1 limit=$2 log status=0 bad
    shift 2
    log=$(log_of "$name")
    timeout -k 10 "$limit" "$@" </dev/null >"$log" 2>&1 || status=$?
    if [[ $(tail -n 1 "$log") =~ ^([0-9]+)\ passed,\ ([0-9]+)\ failed$ ]]; then
        bad=${BASH_REMATCH[2]}
        if [ "$bad" -eq 0 ] && { [ "$status" -ne 0 ] || [ "${BASH_REMATCH[1]}" -eq 0 ]; }; then bad=1; fi
        if [ "$bad" -eq 0 ]; then
            passed "$name: ${BASH_REMATCH[1]} checks" "${BASH_REMATCH[1]}"
        else
            PASSED=$((PASSED + BASH_REMATCH[1]))
            failed "$name: $bad, exit status $status" "$log" "$bad"
        fi
    else
        failed "$name: ended without a result, exit status $status" "$log"
    fi
}

# summary: the closing line; succeeds when something ran and nothing failed.
summary() {
    echo "$PASSED passed, $FAILED failed"
    [ "$FAILED" -eq 0 ] && [ "$PASSED" -gt 0 ]
}
