// Discs as JSON; JSON.md describes the document.
#pragma once

#include <string>
#include <string_view>

#include "companion/code_page.h"
#include "companion/disc.h"

// What stands before the first disc, between two and behind the last.
std::string JsonStart();
std::string JsonBetween();
std::string JsonEnd();
std::string JsonDisc(const Disc& disc, const CodePage& page);

// False when the text is no JSON or not this document; a single disc that is wrong is refused.
bool ReadJson(std::string_view text, const CodePage& page, const DiscSink& sink,
              SourceFault& fault);
