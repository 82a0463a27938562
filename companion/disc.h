// Discs on their way into the catalogue: what importers are given and what they answer.
#pragma once

#include <functional>
#include <string>

#include "database/disc_entry.h"
#include "disc/disc_toc.h"

// Where importers put what they find. `where` names a line, an entry or a key of the source.
struct DiscSink {
    std::function<void(const Disc& disc)> take;
    // Something of the disc was changed, left out or cannot be right, yet it is taken.
    std::function<void(const std::string& where, const std::string& what)> warn;
    // This disc cannot be taken; the others can.
    std::function<void(const std::string& where, const std::string& why)> refuse;
};

// The sum of the track lengths modulo 65,536.
inline uint16_t SumOfLengths(const DiscToc& toc) {
    uint32_t sum = 0;
    for (int track = 0; track < toc.trackCount; ++track)
        sum += toc.lengthSeconds[track];
    return static_cast<uint16_t>(sum);
}

// A source of which nothing can be taken; `where` as above, "line 3, column 7" in a text.
struct SourceFault {
    std::string where;
    std::string what;
};
