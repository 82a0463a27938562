// The way through a drive: every directory once, in order, and none that cannot be named.
#include "files/drive_walk.h"

#include <gmock/gmock.h>

#include <map>

#include "files/path_chain.h"

using testing::ElementsAre;

using Tree = std::map<std::string, std::vector<std::string>>;

static std::vector<std::string> Visited(const Tree& tree) {
    DriveWalk walk;
    BeginWalk(walk, "c:\\");
    std::vector<std::string> visited;
    const auto below = [&] {
        visited.push_back(walk.path);
        const auto found = tree.find(walk.path);
        return found == tree.end() ? std::vector<std::string>{} : found->second;
    };
    while (GoOn(walk, below())) {
    }
    return visited;
}

TEST(DriveWalk, ADirectoryComesBeforeThoseBelowItAndSiblingsInTheirOrder) {
    EXPECT_THAT(Visited({{"c:\\", {"a", "b", "c"}},
                         {"c:\\a\\", {"x", "y"}},
                         {"c:\\a\\x\\", {"deep"}},
                         {"c:\\c\\", {"a"}}}),
                ElementsAre("c:\\", "c:\\a\\", "c:\\a\\x\\", "c:\\a\\x\\deep\\", "c:\\a\\y\\",
                            "c:\\b\\", "c:\\c\\", "c:\\c\\a\\"));
}

TEST(DriveWalk, PathsThatCannotBeLongerEndTheWayDown) {
    // One directory in another, as a file system allows them: too deep to be named at some point,
    // where the walk goes back instead of ending.
    Tree deep;
    std::string path = "c:\\";
    deep[path] = {"d", "last"};
    while (path.size() <= 2 * kMaxDirectoryPath) {
        path += "d\\";
        deep[path] = {"d"};
    }
    const std::vector<std::string> way = Visited(deep);
    EXPECT_EQ(way.back(), "c:\\last\\");
    EXPECT_EQ(way[way.size() - 2].size(), kMaxDirectoryPath - 1);
}

TEST(DriveWalk, MasksAskForTheWholeExtension) {
    const std::vector<std::string> masks = {"*.Mid", "*.avi"};
    for (const char* name : {"song.mid", "FILM.AVI", "a.b.mid", ".mid"})
        EXPECT_TRUE(MatchesMask(name, masks)) << name;
    for (const char* name : {"song.midi", "mid", "amid", "song.mid ", "", "avi."})
        EXPECT_FALSE(MatchesMask(name, masks)) << name;
    EXPECT_FALSE(MatchesMask("song.mid", {}));
}
