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
        std::vector<DroppedItem> items;
        int mode;  // 0 when nothing plays
        const char* directory;
        std::vector<std::string> names;
    } cases[] = {
        {{{"c:\\a\\one.WAV", false}}, IDC_MODE_WAVE, "c:\\a\\", {"one.WAV"}},
        {{{"c:\\a\\one.txt", false},
          {"c:\\a\\b.mid", false},
          {"c:\\a\\c.rmi", false},
          {"c:\\a\\d.wav", false},
          {"c:\\other\\e.mid", false}},
         IDC_MODE_MIDI,
         "c:\\a\\",
         {"b.mid", "c.rmi"}},
        {{{"c:\\wav", false}, {"c:\\a.wav\\plain", false}, {"c:\\x.wave", false}}, 0, "", {}},
        {{{"c:\\empty", true}, {"c:\\mixed", true}, {"c:\\a\\one.wav", false}},
         IDC_MODE_MIDI,
         "c:\\mixed\\",
         {}},
        {{{"d:\\", true}}, IDC_MODE_VIDEO, "d:\\", {}},
        {{{"c:\\song.mid", true}}, 0, "", {}},
        {{}, 0, "", {}},
    };
    for (const auto& drop : cases) {
        const DropPlan plan = PlanDrop(drop.items, hasFiles);
        EXPECT_EQ(plan.mode == nullptr ? 0 : plan.mode->id, drop.mode);
        EXPECT_EQ(plan.directory, drop.directory);
        EXPECT_EQ(plan.names, drop.names);
    }
}
