// Pictures come from a timer of the film's window, so they move while the program that opened it
// handles messages; the sound has a thread of its own.
#include "demo/projector/projector.h"

#include <algorithm>
#include <filesystem>

#include "demo/device/device_clock.h"

static constexpr wchar_t kWindowClass[] = L"TarnwellProjector";
static constexpr UINT_PTR kFrameTimer = 1;
static constexpr UINT kFrameTimerMs = 10;

static HINSTANCE Library = nullptr;

static Projector* ProjectorOf(HWND window) {
    return reinterpret_cast<Projector*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

static void DrawFrame(Projector& projector, HDC dc) {
    const Film& film = *projector.film;
    const RECT& place = projector.destination;
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = static_cast<LONG>(film.width);
    info.bmiHeader.biHeight = -static_cast<LONG>(film.height);  // rows from the top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    SetStretchBltMode(dc, COLORONCOLOR);
    StretchDIBits(dc, place.left, place.top, place.right - place.left, place.bottom - place.top, 0,
                  0, static_cast<int>(film.width), static_cast<int>(film.height),
                  projector.rows.data(), &info, DIB_RGB_COLORS, SRCCOPY);
    ExcludeClipRect(dc, place.left, place.top, place.right, place.bottom);
    RECT client;
    GetClientRect(projector.window, &client);
    FillRect(dc, &client, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
}

static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    Projector* projector = ProjectorOf(window);
    if (!projector) return DefWindowProcW(window, message, first, second);
    switch (message) {
        case WM_PAINT: {
            PAINTSTRUCT paint;
            DrawFrame(*projector, BeginPaint(window, &paint));
            EndPaint(window, &paint);
            return 0;
        }
        case WM_ERASEBKGND:
            return 1;
        case WM_TIMER:
            ShowFrameOfNow(*projector);
            if (ModeOfFilm(projector->transport, NowMs()) != FilmMode::kPlaying)
                KillTimer(window, kFrameTimer);
            return 0;
        case WM_NCDESTROY:
            projector->window = nullptr;
            break;
        default:
            break;
    }
    return DefWindowProcW(window, message, first, second);
}

void RegisterProjectorWindow(HINSTANCE library) {
    Library = library;
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = library;
    windowClass.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));  // the arrow
    windowClass.lpszClassName = kWindowClass;
    RegisterClassW(&windowClass);
}

void UnregisterProjectorWindow(HINSTANCE library) {
    UnregisterClassW(kWindowClass, library);
}

static bool MakeWindow(Projector& projector, HWND parent, DWORD style) {
    const auto width = static_cast<LONG>(projector.film->width);
    const auto height = static_cast<LONG>(projector.film->height);
    RECT place = {0, 0, width, height};
    AdjustWindowRect(&place, style, FALSE);
    const bool isChild = (style & WS_CHILD) != 0;
    const int at = isChild ? 0 : CW_USEDEFAULT;
    projector.window = CreateWindowExW(
        0, kWindowClass, L"Tarnwell projector", style & ~static_cast<DWORD>(WS_VISIBLE), at, at,
        place.right - place.left, place.bottom - place.top, parent, nullptr, Library, nullptr);
    if (!projector.window) return false;
    projector.destination = {0, 0, width, height};
    SetWindowLongPtrW(projector.window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&projector));
    return true;
}

bool OpenProjector(Projector& projector, const std::wstring& path, HWND parent, DWORD style) {
    auto film = std::make_shared<Film>();
    projector.file.open(std::filesystem::path(path), std::ios::binary);
    if (!projector.file || !ReadFilm(projector.file, *film)) return false;
    projector.path = path;
    projector.film = film;
    projector.transport.lengthMs = film->lengthMs;
    projector.transport.endMs = film->lengthMs;
    projector.isOpen = ReadPicture(projector.file, *film, 0, projector.rows) &&
                       MakeWindow(projector, parent, style);
    return projector.isOpen;
}

static void StopSound(Projector& projector) {
    StopWaveOutput(projector.sound);
    projector.sound = nullptr;
}

void CloseProjector(Projector& projector) {
    StopSound(projector);
    if (projector.window) {
        SetWindowLongPtrW(projector.window, GWLP_USERDATA, 0);
        DestroyWindow(projector.window);
    }
    projector.window = nullptr;
    projector.isOpen = false;
}

// A tenth of a second at a time: a film that is muted or stopped is silent soon.
static WaveOutput* StartSound(const Projector& projector, uint32_t fromMs, uint32_t toMs) {
    const FilmSound& sound = projector.film->sound;
    if (sound.sampleRate == 0 || fromMs >= toMs) return nullptr;
    const auto file =
        std::make_shared<std::ifstream>(std::filesystem::path(projector.path), std::ios::binary);
    const uint32_t most = sound.sampleRate / 10;
    uint64_t next = uint64_t{fromMs} * sound.sampleRate / 1000;
    const uint64_t end = uint64_t{toMs} * sound.sampleRate / 1000;
    const auto fill = [film = projector.film, isMuted = projector.isMuted, file, most, next,
                       end](int16_t* samples) mutable {
        const auto wanted = static_cast<uint32_t>(std::min<uint64_t>(most, end - next));
        const uint32_t count = ReadSound(*file, film->sound, next, wanted, samples);
        if (*isMuted)
            std::fill(samples, samples + size_t{count} * film->sound.channels, int16_t{0});
        next += count;
        return count;
    };
    return StartWaveOutput({sound.sampleRate, sound.channels, most}, fill);
}

void ShowFrameOfNow(Projector& projector) {
    const uint32_t frame = FrameAt(*projector.film, PositionOfFilm(projector.transport, NowMs()));
    if (frame == projector.shownFrame || !projector.window) return;
    // A picture that cannot be read any more leaves the one before it standing.
    if (!ReadPicture(projector.file, *projector.film, frame, projector.rows)) return;
    projector.shownFrame = frame;
    InvalidateRect(projector.window, nullptr, FALSE);
    UpdateWindow(projector.window);
}

void ProjectorFollows(Projector& projector) {
    const uint64_t now = NowMs();
    const FilmTransport& transport = projector.transport;
    StopSound(projector);
    ShowFrameOfNow(projector);
    if (ModeOfFilm(transport, now) != FilmMode::kPlaying) return;
    if (projector.window) SetTimer(projector.window, kFrameTimer, kFrameTimerMs, nullptr);
    projector.sound = StartSound(projector, PositionOfFilm(transport, now), transport.endMs);
}
