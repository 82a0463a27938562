// Loading, recolouring and freeing the skin's bitmaps and the palette.
#include "ui/skin.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "base/handles.h"
#include "base/program_state.h"
#include "ui/entry_colors.h"
#include "ui/recolor.h"

int LargeSkin;
HPALETTE ProgramPalette;

static HBITMAP SlotBitmaps[kSkinSlotCount];
static bool SkinInUse;  // from LoadSkin to FreeSkin

constexpr size_t kColorCount = 16;

// What a picture's light grey becomes.
enum class Ground { kButtonFace, kEntryField, kHighlight };

struct SlotSource {
    SkinSlot slot;
    int smallId;
    int largeId;
    Ground ground;
};
// The icon strip is drawn on three grounds; the pictures that exist once serve both sets.
constexpr SlotSource kSlotSources[] = {
    {kSlotMainButtons, IDB_MAIN_BUTTONS, IDB_MAIN_BUTTONS_LARGE, Ground::kButtonFace},
    {kSlotDialogButtons, IDB_DIALOG_BUTTONS, IDB_DIALOG_BUTTONS_LARGE, Ground::kButtonFace},
    {kSlotIconsOnEntry, IDB_ICONS, IDB_ICONS_LARGE, Ground::kEntryField},
    {kSlotIconsOnFace, IDB_ICONS, IDB_ICONS, Ground::kButtonFace},
    {kSlotIconsOnHighlight, IDB_ICONS_HIGHLIGHT, IDB_ICONS_HIGHLIGHT_LARGE, Ground::kHighlight},
    {kSlotFrameCorners, IDB_FRAME_CORNERS, IDB_FRAME_CORNERS, Ground::kButtonFace},
    {kSlotSmallButtons, IDB_SMALL_BUTTONS, IDB_SMALL_BUTTONS_LARGE, Ground::kButtonFace},
    {kSlotTabs, IDB_TABS, IDB_TABS_LARGE, Ground::kButtonFace},
    {kSlotMenuButtons, IDB_MENU_BUTTONS, IDB_MENU_BUTTONS_LARGE, Ground::kButtonFace},
    {kSlotCdStrip, IDB_CD_STRIP, IDB_CD_STRIP, Ground::kButtonFace},
    {kSlotCdSprite, IDB_CD_SPRITE, IDB_CD_SPRITE, Ground::kButtonFace},
    {kSlotMidiStrip, IDB_MIDI_STRIP, IDB_MIDI_STRIP, Ground::kButtonFace},
    {kSlotMidiSprite, IDB_MIDI_SPRITE, IDB_MIDI_SPRITE, Ground::kButtonFace},
    {kSlotWaveStrip, IDB_WAVE_STRIP, IDB_WAVE_STRIP, Ground::kButtonFace},
    {kSlotWaveSprite, IDB_WAVE_SPRITE, IDB_WAVE_SPRITE, Ground::kButtonFace},
    {kSlotAboutStrip, IDB_ABOUT_STRIP, IDB_ABOUT_STRIP, Ground::kButtonFace},
    {kSlotCopyStrip, IDB_COPY_STRIP, IDB_COPY_STRIP, Ground::kButtonFace},
    {kSlotVideoSprite, IDB_VIDEO_SPRITE, IDB_VIDEO_SPRITE, Ground::kButtonFace},
};

static uint32_t SystemRgb(int index) {
    const COLORREF color = GetSysColor(index);
    return static_cast<uint32_t>(GetRValue(color) << 16 | GetGValue(color) << 8 | GetBValue(color));
}

static int GroundColor(Ground ground) {
    switch (ground) {
        case Ground::kHighlight:
            return COLOR_HIGHLIGHT;
        case Ground::kEntryField:
            return CurrentEntryColors().ground;
        default:
            return COLOR_BTNFACE;
    }
}

// A bitmap resource: header, sixteen colours and pixels, all inside the resource's bytes.
struct BitmapResource {
    const BYTE* bytes;
    size_t imageBytes;
};
constexpr size_t kTableOffset = sizeof(BITMAPINFOHEADER);
constexpr size_t kPixelsOffset = kTableOffset + kColorCount * sizeof(RGBQUAD);

// False when there is no such resource or it is not a 16-colour picture with its sizes filled in.
static bool FindBitmapResource(int id, BitmapResource& found) {
    HRSRC resource = FindResourceA(ProgramInstance, MAKEINTRESOURCEA(id), RT_BITMAP);
    if (resource == nullptr) return false;
    const size_t size = SizeofResource(ProgramInstance, resource);
    const auto* bytes =
        static_cast<const BYTE*>(LockResource(LoadResource(ProgramInstance, resource)));
    BITMAPINFOHEADER header;
    if (bytes == nullptr || size < sizeof header) return false;
    memcpy(&header, bytes, sizeof header);
    if (header.biSize != sizeof header || header.biBitCount != 4) return false;
    if (header.biClrUsed != kColorCount || header.biWidth <= 0 || header.biHeight <= 0)
        return false;
    if (size < kPixelsOffset || header.biSizeImage > size - kPixelsOffset) return false;
    const uint64_t rowBytes = (static_cast<uint64_t>(header.biWidth) + 7) / 8 * 4;
    if (rowBytes * static_cast<uint64_t>(header.biHeight) > header.biSizeImage) return false;
    found = {bytes, header.biSizeImage};
    return true;
}

static void RecolorTable(RGBQUAD* table, const SkinColors& colors) {
    for (size_t i = 0; i < kColorCount; ++i) {
        RGBQUAD& entry = table[i];
        const uint32_t old =
            static_cast<uint32_t>(entry.rgbRed << 16 | entry.rgbGreen << 8 | entry.rgbBlue);
        const uint32_t color = RecolorEntry(old, colors);
        entry.rgbRed = static_cast<BYTE>(color >> 16);
        entry.rgbGreen = static_cast<BYTE>(color >> 8);
        entry.rgbBlue = static_cast<BYTE>(color);
    }
}

static HBITMAP LoadSkinBitmap(HDC dc, int id, Ground ground) {
    BitmapResource source;
    if (!FindBitmapResource(id, source)) return nullptr;
    // A copy, because resources are read-only and the colours are about to change.
    std::vector<BYTE> copy(source.bytes, source.bytes + kPixelsOffset + source.imageBytes);
    const SkinColors colors = {SystemRgb(GroundColor(ground)), SystemRgb(COLOR_BTNHIGHLIGHT),
                               SystemRgb(COLOR_BTNSHADOW)};
    RecolorTable(reinterpret_cast<RGBQUAD*>(copy.data() + kTableOffset), colors);
    const auto* header = reinterpret_cast<const BITMAPINFOHEADER*>(copy.data());
    return CreateDIBitmap(dc, header, CBM_INIT, copy.data() + kPixelsOffset,
                          reinterpret_cast<const BITMAPINFO*>(copy.data()), DIB_RGB_COLORS);
}

// The pictures whose colours make up the palette, in the order of its sixteens.
constexpr int kPaletteSources[] = {IDB_CD_STRIP,    IDB_CD_SPRITE,   IDB_COPY_STRIP,
                                   IDB_WAVE_STRIP,  IDB_ABOUT_STRIP, IDB_MIDI_STRIP,
                                   IDB_MIDI_SPRITE, IDB_WAVE_SPRITE};

static void BuildPalette() {
    constexpr size_t entries = std::size(kPaletteSources) * kColorCount;
    struct {
        WORD version;
        WORD count;
        PALETTEENTRY entry[entries];
    } palette = {0x300, entries, {}};
    for (size_t n = 0; n < std::size(kPaletteSources); ++n) {
        BitmapResource source;
        if (!FindBitmapResource(kPaletteSources[n], source)) continue;
        for (size_t i = 0; i < kColorCount; ++i) {
            RGBQUAD color;
            memcpy(&color, source.bytes + kTableOffset + i * sizeof color, sizeof color);
            PALETTEENTRY& entry = palette.entry[n * kColorCount + i];
            entry = {color.rgbRed, color.rgbGreen, color.rgbBlue, 0};
            if (entry.peRed == 0xC0 && entry.peGreen == 0xC0 && entry.peBlue == 0xC0) {
                const COLORREF face = GetSysColor(COLOR_BTNFACE);
                entry = {GetRValue(face), GetGValue(face), GetBValue(face), 0};
            }
        }
    }
    ProgramPalette = CreatePalette(reinterpret_cast<const LOGPALETTE*>(&palette));
}

void LoadSkin(HWND window) {
    const UniqueWindowDc dc = GetUniqueDc(window);
    BuildPalette();
    LargeSkin = ChooseSkinSet(GetDeviceCaps(dc.get(), LOGPIXELSX),
                              GetDeviceCaps(dc.get(), LOGPIXELSY), LargeSkin);
    SkinInUse = true;
}

static void FreeBitmaps() {
    for (HBITMAP& bitmap : SlotBitmaps) {
        if (bitmap != nullptr) DeleteObject(bitmap);
        bitmap = nullptr;
    }
    if (ProgramPalette != nullptr) DeleteObject(ProgramPalette);
    ProgramPalette = nullptr;
}

void ReloadSkin(HWND window) {
    FreeBitmaps();
    LoadSkin(window);
}

void FreeSkin() {
    FreeBitmaps();
    LargeSkin = 0;
    SkinInUse = false;
}

HBITMAP SkinBitmap(SkinSlot slot) {
    if (!SkinInUse || SlotBitmaps[slot] != nullptr) return SlotBitmaps[slot];
    const auto* source =
        std::find_if(std::begin(kSlotSources), std::end(kSlotSources),
                     [slot](const SlotSource& candidate) { return candidate.slot == slot; });
    const UniqueWindowDc dc = GetUniqueDc(nullptr);
    SlotBitmaps[slot] =
        LoadSkinBitmap(dc.get(), LargeSkin ? source->largeId : source->smallId, source->ground);
    return SlotBitmaps[slot];
}

void CopyFromSkin(HDC target, int x, int y, SkinSlot slot, const SkinRect& source) {
    if (SkinBitmap(slot) == nullptr) return;
    const UniqueMemoryDc memory(CreateCompatibleDC(target));
    const SelectedObject selected = SelectInto(memory.get(), SkinBitmap(slot));
    BitBlt(target, x, y, source.width, source.height, memory.get(), source.x, source.y, SRCCOPY);
}
