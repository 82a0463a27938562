// What differs between the two worlds the program is built for; its texts are UTF-8 in both.
#pragma once

#include <string>
#include <vector>

// The command line behind the program's name.
std::vector<std::string> Arguments(int argc, char** argv);
// The output takes UTF-8 and changes no line ends, up to the program's end.
void PrepareOutput();
// The order of artists: on Windows the program's own. Elsewhere letters go before their case, as
// there, small ones first; what is beyond plain letters goes by its bytes.
int CompareArtists(const char* first, const char* second);
// A path as the file calls take it. False when the system cannot name it so.
bool ToSystemPath(const std::string& utf8, std::string& path);
