// Sectors to time and back.
#include "demo/drive/disc_layout.h"

static constexpr uint32_t kSectorsPerMinute = 60 * kSectorsPerSecond;

static uint32_t PackMsf(uint32_t sectors) {
    const uint32_t minutes = sectors / kSectorsPerMinute;
    if (minutes > 255) return 255 | 59U << 8 | 74U << 16;
    const uint32_t seconds = sectors / kSectorsPerSecond % 60;
    return minutes | seconds << 8 | sectors % kSectorsPerSecond << 16;
}

// Rounded up, so that the way back, rounded down, meets the same sector.
static uint32_t SectorsToMilliseconds(uint32_t sectors) {
    return static_cast<uint32_t>((uint64_t{sectors} * 1000 + kSectorsPerSecond - 1) /
                                 kSectorsPerSecond);
}

static bool UnpackMsf(uint32_t packed, uint32_t& sectors) {
    const uint32_t minutes = packed & 255;
    const uint32_t seconds = packed >> 8 & 255;
    const uint32_t frames = packed >> 16 & 255;
    if (seconds >= 60 || frames >= kSectorsPerSecond) return false;
    sectors = minutes * kSectorsPerMinute + seconds * kSectorsPerSecond + frames;
    return true;
}

uint32_t PackLength(uint32_t sectors, TimeFormat format) {
    return format == TimeFormat::kMilliseconds ? SectorsToMilliseconds(sectors) : PackMsf(sectors);
}

uint32_t TrackOfSector(const DiscLayout& disc, uint32_t sector) {
    uint32_t track = disc.tracks.empty() ? 0 : 1;
    for (uint32_t i = 0; i < disc.tracks.size(); ++i) {
        // An empty track never holds a sector: the one behind it starts at the same place.
        if (disc.tracks[i].startSector <= sector) track = i + 1;
    }
    return track;
}

uint32_t PackPosition(const DiscLayout& disc, uint32_t sector, TimeFormat format) {
    if (format != TimeFormat::kTmsf) return PackLength(sector + kLeadInSectors, format);
    const uint32_t track = TrackOfSector(disc, sector);
    if (track == 0) return 0;
    return track | PackMsf(sector - disc.tracks[track - 1].startSector) << 8;
}

bool UnpackPosition(const DiscLayout& disc, uint32_t packed, TimeFormat format, uint32_t& sector) {
    uint64_t found = 0;
    uint32_t within = 0;
    if (format == TimeFormat::kTmsf) {
        const uint32_t track = packed & 255;
        if (track == 0 || track > disc.tracks.size() || !UnpackMsf(packed >> 8, within))
            return false;
        found = uint64_t{disc.tracks[track - 1].startSector} + within;
    } else {
        if (format == TimeFormat::kMilliseconds)
            within = static_cast<uint32_t>(uint64_t{packed} * kSectorsPerSecond / 1000);
        else if (!UnpackMsf(packed, within))
            return false;
        if (within < kLeadInSectors) return false;
        found = within - kLeadInSectors;
    }
    if (found > disc.sectors) return false;
    sector = static_cast<uint32_t>(found);
    return true;
}
