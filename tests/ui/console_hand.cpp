// Somebody at a console who starts a program there and presses Ctrl+C.
//
//   pixora_ui_console.exe PROGRAM [ARGUMENT...]
//
// Starts the program, whose results and messages go to standard output, and writes its number to standard
// error. Then presses Ctrl+C for each byte of standard input and writes the error number, 0 for none. The end
// of the input ends it.
#include <windows.h>

#include <string>

namespace {

void Answer(DWORD number) {
    const std::string line = std::to_string(number) + '\n';
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), line.data(), static_cast<DWORD>(line.size()), &written,
              nullptr);
}

/// What follows the first word of the command line, which stands in quotes.
std::wstring ProgramCall() {
    const std::wstring line = GetCommandLineW();
    return line.substr(line.find(L'"', 1) + 2);
}

/// The number of the program, which stays its own as long as this one runs; 0 when it could not be started.
DWORD StartProgram() {
    std::wstring call = ProgramCall();
    const HANDLE results = GetStdHandle(STD_OUTPUT_HANDLE);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = start.hStdError = results;
    PROCESS_INFORMATION started{};
    // The other two pipes are not for the program: it would keep them open.
    for (const DWORD own : {STD_INPUT_HANDLE, STD_ERROR_HANDLE})
        SetHandleInformation(GetStdHandle(own), HANDLE_FLAG_INHERIT, 0);
    CreateProcessW(nullptr, call.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &started);
    CloseHandle(results);
    return started.dwProcessId;
}

// Ctrl+C is for all programs at the console.
BOOL WINAPI StayAlive(DWORD) {
    return TRUE;
}

}  // namespace

int wmain() {
    SetConsoleCtrlHandler(nullptr, FALSE);  // a program ignores Ctrl+C where the one that starts it does
    SetConsoleCtrlHandler(StayAlive, TRUE);
    Answer(StartProgram());
    char byte = 0;
    for (DWORD got = 0; ReadFile(GetStdHandle(STD_INPUT_HANDLE), &byte, 1, &got, nullptr) && got == 1;)
        Answer(GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0) ? ERROR_SUCCESS : GetLastError());
    return 0;
}
