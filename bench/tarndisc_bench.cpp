// What tarndisc's long commands cost: an import of 10,000 xmcd files, check and salvage of 65,535
// discs, each beside one sequential reading of the same bytes and beside a start that does nothing.
// tarndisc_bench TARNDISC. Prints best and median times and ratios; asserts nothing about time.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>

#include "companion/code_page.h"
#include "companion/xmcd.h"
#include "tests/database/sample_discs.h"

namespace fs = std::filesystem;

constexpr int kXmcdFiles = 10000;
constexpr int kDiscs = 65535;
constexpr int kRounds = 5;

static void Require(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s failed\n", what);
    std::exit(1);
}

static void ReadFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    static char block[65536];
    while (file.read(block, sizeof block))
        continue;
    Require(file.eof(), "reading");
}

static void ReadFolder(const fs::path& folder) {
    for (const auto& entry : fs::directory_iterator(folder))
        ReadFile(entry.path());
}

// Every disc has a table of contents of its own.
static std::vector<Disc> MakeDiscs(int count) {
    std::vector<Disc> discs;
    for (int i = 0; i < count; ++i) {
        discs.push_back(SampleDisc(i % 4096, 8 + i % 9));
        DiscToc& toc = discs.back().toc;
        toc.lengthSeconds[1] = static_cast<uint16_t>(60 + i / 4096);
        toc.totalSeconds = SumOfLengths(toc);
    }
    return discs;
}

// Both take turns, so that they meet the same weather.
static void Compare(const char* name, const std::function<void()>& reading,
                    const std::function<void()>& work) {
    std::vector<double> times[2];
    for (int round = 0; round <= kRounds; ++round) {
        int which = 0;
        for (const auto& each : {reading, work}) {
            const auto start = std::chrono::steady_clock::now();
            each();
            const std::chrono::duration<double, std::milli> taken =
                std::chrono::steady_clock::now() - start;
            if (round > 0) times[which].push_back(taken.count());
            ++which;
        }
    }
    for (auto& each : times)
        std::sort(each.begin(), each.end());
    std::printf("  %-34s %9.1f ms %9.1f ms %8.2f x one reading of %.1f ms\n", name,
                times[1].front(), times[1][kRounds / 2], times[1].front() / times[0].front(),
                times[0].front());
}

int main(int argc, char** argv) {
    Require(argc == 2, "tarndisc_bench TARNDISC");
    const fs::path program = fs::absolute(argv[1]);
    const fs::path folder =
        fs::temp_directory_path() / ("tarndisc_bench_" + std::to_string(std::random_device()()));
    fs::create_directories(folder / "xmcd");
    const auto run = [&](const std::string& arguments, int exitCode) {
        const std::string command = "cd '" + folder.string() + "' && '" + program.string() + "' " +
                                    arguments + " >output 2>&1";
        const int status = std::system(command.c_str());
        Require(WIFEXITED(status) && WEXITSTATUS(status) == exitCode, arguments.c_str());
    };
    CodePage page;
    Require(LoadCodePage(kDefaultCodePage, page), "code page");
    const std::vector<Disc> discs = MakeDiscs(kDiscs);
    for (int i = 0; i < kXmcdFiles; ++i) {
        std::ofstream(folder / "xmcd" / std::to_string(i), std::ios::binary)
            << XmcdText(discs[static_cast<size_t>(i)], page);
    }
    std::string image = DatabaseImage(discs);
    std::ofstream(folder / "whole.dat", std::ios::binary) << image;
    image[EntryStarts(discs)[kDiscs / 2]] ^= 1;
    std::ofstream(folder / "damaged.dat", std::ios::binary) << image;

    std::printf("%d xmcd files; catalogues of %d discs, %zu bytes\n", kXmcdFiles, kDiscs,
                image.size());
    const auto readWhole = [&] { ReadFile(folder / "whole.dat"); };
    Compare("a start that does nothing", readWhole, [&] { run("--help", 0); });
    Compare(
        "import of xmcd files", [&] { ReadFolder(folder / "xmcd"); },
        [&] {
            fs::remove(folder / "new.dat");
            run("import new.dat xmcd", 0);
        });
    Compare("check", readWhole, [&] { run("check whole.dat", 0); });
    Compare("salvage, one pointer damaged", readWhole, [&] {
        fs::remove(folder / "mended.dat");
        run("salvage damaged.dat --output mended.dat", 1);
    });
    fs::remove_all(folder);
}
