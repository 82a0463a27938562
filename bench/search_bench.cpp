// The search of a drive beside a plain walk over the same directories by the platform's own calls.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "files/drive_search.h"
#include "tests/scratch_drive.h"

constexpr int kTopDirectories = 20;
constexpr int kDirectoriesBelow = 20;
constexpr int kFilesInEach = 50;
constexpr int kRuns = 7;

static const std::string kRoot = "c:\\search_bench\\";

static void MakeFile(const std::string& path) {
    CloseHandle(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

// 20,000 files in 400 directories, every second one of the kind that is looked for.
static void MakeTree() {
    CreateDirectoryA(kRoot.c_str(), nullptr);
    for (int i = 0; i < kTopDirectories; ++i) {
        const std::string top = kRoot + "top" + std::to_string(i) + "\\";
        CreateDirectoryA(top.c_str(), nullptr);
        for (int k = 0; k < kDirectoriesBelow; ++k) {
            const std::string below = top + "below" + std::to_string(k) + "\\";
            CreateDirectoryA(below.c_str(), nullptr);
            for (int n = 0; n < kFilesInEach; ++n)
                MakeFile(below + "file" + std::to_string(n) + (n % 2 ? ".wav" : ".txt"));
        }
    }
}

static int PlainWalk(const std::string& directory) {
    WIN32_FIND_DATAA entry;
    HANDLE find = FindFirstFileA((directory + "*").c_str(), &entry);
    if (find == INVALID_HANDLE_VALUE) return 0;
    int files = 0;
    do {
        if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
            ++files;
        } else if (entry.cFileName[0] != '.') {
            files += PlainWalk(directory + entry.cFileName + "\\");
        }
    } while (FindNextFileA(find, &entry));
    FindClose(find);
    return files;
}

static double NowMs() {
    LARGE_INTEGER count;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

static double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int main() {
    MakeTree();
    if (!MakeScratchDrive(kRoot.substr(0, kRoot.size() - 1))) {
        fprintf(stderr, "search_bench: no drive can be made here\n");
        return 1;
    }
    std::vector<double> plainMs;
    std::vector<double> searchMs;
    int walked = 0;
    SearchResult result;
    for (int run = 0; run < kRuns; ++run) {
        const double start = NowMs();
        walked = PlainWalk("t:\\");
        const double between = NowMs();
        SearchDrive(kScratchLetter, {"Wave", {"*.wav"}}, result,
                    [](const std::string&, const std::string&) { return GetTickCount() != 0; });
        plainMs.push_back(between - start);
        searchMs.push_back(NowMs() - between);
    }
    RemoveScratchDrive();
    printf("%d files; search found %u in %zu directories\n", walked, result.files,
           result.directories.size());
    printf("plain walk %.0f ms, search %.0f ms: %.2f of the plain walk's time\n", Median(plainMs),
           Median(searchMs), Median(searchMs) / Median(plainMs));
    return 0;
}
