// Track lists of cdplayer.ini: a section a disc, with artist, title and names and without lengths.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "companion/code_page.h"
#include "companion/disc.h"

// By section, in small letters: the tracks' lengths in seconds.
using SectionLengths = std::map<std::string, std::vector<uint16_t>>;

// Lines of a section's name and its tracks' lengths: "A1B2C3 3:07 4:12 187". Empty lines and those
// that begin with "#" are skipped. False at the first line that is something else.
bool ReadSectionLengths(std::string_view text, SectionLengths& lengths, SourceFault& fault);

// Texts in the system's ANSI code page, which `page` is taken for unless the file is UTF-8. A
// section without lengths is refused, and one whose number of tracks is another than that of its
// lengths.
void ReadPlayerIni(std::string_view text, const CodePage& page, const SectionLengths& lengths,
                   const DiscSink& sink);
