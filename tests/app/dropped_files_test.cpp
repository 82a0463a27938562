// Which of the dropped files play, and where.
#include "app/dropped_files.h"

#include <gtest/gtest.h>

#include "resources/ids.h"

TEST(DroppedFiles, TheFirstThatPlaysDecides) {
    const auto hasFiles = [](const std::string& directory, const Mode& mode) {
        if (directory == "d:\\") return mode.id == IDC_MODE_VIDEO;
        return directory == "c:\\mixed\\" && mode.id != IDC_MODE_WAVE;
    };
    const struct {
        std::vector<std::string> files, folders;
        int mode;  // 0 when nothing plays
        const char* directory;
        std::vector<std::string> names;
    } cases[] = {
        {{"c:\\a\\one.WAV"}, {}, IDC_MODE_WAVE, "c:\\a\\", {"one.WAV"}},
        {{"c:\\a\\one.txt", "c:\\a\\b.mid", "c:\\a\\c.rmi", "c:\\a\\d.wav", "c:\\other\\e.mid"},
         {},
         IDC_MODE_MIDI,
         "c:\\a\\",
         {"b.mid", "c.rmi"}},
        {{"c:\\wav", "c:\\a.wav\\plain", "c:\\x.wave"}, {"c:\\song.mid"}, 0, "", {}},
        {{"c:\\a\\one.wav"}, {"c:\\empty", "c:\\mixed"}, IDC_MODE_MIDI, "c:\\mixed\\", {}},
        {{}, {"d:\\"}, IDC_MODE_VIDEO, "d:\\", {}},
        {{}, {}, 0, "", {}},
    };
    for (const auto& drop : cases) {
        std::vector<DroppedItem> items;
        for (const std::string& folder : drop.folders)
            items.push_back({folder, true});
        for (const std::string& file : drop.files)
            items.push_back({file, false});
        const DropPlan plan = PlanDrop(items, hasFiles);
        EXPECT_EQ(plan.mode == nullptr ? 0 : plan.mode->id, drop.mode);
        EXPECT_EQ(plan.directory, drop.directory);
        EXPECT_EQ(plan.names, drop.names);
    }
}
