// The text files of disc databases on the net: one file a disc, its table of contents in comments.
#pragma once

#include <string>
#include <string_view>

#include "companion/code_page.h"
#include "companion/disc.h"

// Such a file begins with this.
bool LooksLikeXmcd(std::string_view text);

// The disc number those databases use, from offsets rebuilt from whole seconds: approximate,
// because the frames were never kept.
uint32_t ApproximateDiscId(const DiscToc& toc);

// One file, in UTF-8; the disc has 1 to 99 tracks.
std::string XmcdText(const Disc& disc, const CodePage& page);

// UTF-8, or ISO 8859-1 when the text is no UTF-8. Long texts may stand in several lines of one key.
// False, and nothing is taken, when the table of contents is missing or cannot be.
bool ReadXmcd(std::string_view text, const CodePage& page, const DiscSink& sink,
              SourceFault& fault);
