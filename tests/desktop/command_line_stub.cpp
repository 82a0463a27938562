// A program in the place of an editor or a mixer: writes the command line it was started with into
// a file beside itself.
#include <windows.h>

#include <fstream>

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    // Under another name first, so that who waits for the file finds it whole.
    const std::string result = std::string(path) + ".txt";
    std::ofstream(result + "~") << GetCommandLineA();
    MoveFileA((result + "~").c_str(), result.c_str());
    return 0;
}
