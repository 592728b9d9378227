// Where the program starts.
#include <windows.h>

#include "app/windows/pixora_app.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    pixora::CPixoraApp().InitInstance();
    return 0;
}
