#!/usr/bin/env bash
# Other programs must be able to read the samples, and must see the same picture in all of them that show the same.
set -u -o pipefail
cd "$(dirname "$(readlink -f -- "${BASH_SOURCE[0]}")")/../samples" || exit 1
status=0
wrong() {
    echo "$*"
    status=1
}

for file in *.tif; do
    tiffinfo -D "$file" 2>&1 | grep -iE 'warning|error' && wrong "$file is not read without complaint"
done
[ "$(find . -size +1024k | wc -l)" = 0 ] || wrong "a sample is larger than a megabyte"
[ "$(cat ./* | wc -c)" -lt 3000000 ] || wrong "the samples take more than three megabytes"
exit $status
