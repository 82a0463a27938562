// Draws every picture of the skin and the program's icon: draw_skin SKIN_FOLDER ICON_FILE. The
// same files come out of every run and every build.
#include <cstdio>
#include <string>

#include "resources/art/picture.h"
#include "resources/art/skin_pictures.h"

static bool Failed = false;

static void Write(const std::string& path, const Picture& picture, const Palette& palette) {
    if (WriteBitmap(path, picture, palette)) return;
    std::fprintf(stderr, "cannot write %s\n", path.c_str());
    Failed = true;
}

static void Write(const std::string& path, const StripPicture& strip) {
    Write(path, strip.picture, strip.palette);
}

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: draw_skin SKIN_FOLDER ICON_FILE\n");
        return 2;
    }
    const std::string folder = std::string(argv[1]) + "/";
    const Palette house = HousePalette();

    const struct {
        const char* name;
        const SkinGrid& grid;
    } grids[] = {{"main_buttons", kMainButtonGrid},
                 {"dialog_buttons", kDialogButtonGrid},
                 {"small_buttons", kSmallButtonGrid},
                 {"tabs", kTabGrid},
                 {"menu_buttons", kMenuButtonGrid}};
    for (const auto& entry : grids) {
        Write(folder + entry.name + ".bmp", DrawGrid(entry.grid, false), house);
        Write(folder + entry.name + "_large.bmp", DrawGrid(entry.grid, true), house);
    }

    Write(folder + "icons.bmp", DrawIcons(kSmallIconSize, false), house);
    Write(folder + "icons_large.bmp", DrawIcons(kLargeIconSize, false), house);
    Write(folder + "icons_highlight.bmp", DrawIcons(kSmallIconSize, true), house);
    Write(folder + "icons_highlight_large.bmp", DrawIcons(kLargeIconSize, true), house);
    Write(folder + "frame_corners.bmp", DrawFrameCorners(), house);

    Write(folder + "cd_strip.bmp", DrawCdStrip());
    Write(folder + "midi_strip.bmp", DrawMidiStrip());
    Write(folder + "wave_strip.bmp", DrawWaveStrip());
    Write(folder + "about_strip.bmp", DrawAboutStrip());
    Write(folder + "copy_strip.bmp", DrawCopyStrip());
    Write(folder + "cd_sprite.bmp", DrawCdSprite());
    Write(folder + "wave_sprite.bmp", DrawWaveSprite());
    Write(folder + "midi_sprite.bmp", DrawMidiSprite());
    Write(folder + "video_sprite.bmp", DrawVideoSprite());

    if (!WriteIcon(argv[2])) {
        std::fprintf(stderr, "cannot write %s\n", argv[2]);
        Failed = true;
    }
    return Failed ? 1 : 0;
}
