// A program in the place of an editor or a mixer: writes the command line it was started with into
// a file beside itself.
#include <windows.h>

#include <string>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string commandLine = GetCommandLineA();
    // Under another name first, so that who waits for the file finds it whole.
    const std::string result = std::string(path) + ".txt";
    const std::string unfinished = result + "~";
    HANDLE file =
        CreateFileA(unfinished.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, commandLine.data(), static_cast<DWORD>(commandLine.size()), &written, nullptr);
    CloseHandle(file);
    MoveFileA(unfinished.c_str(), result.c_str());
    return 0;
}
