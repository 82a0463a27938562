// Searching a drive for the directories that hold files of one kind.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// What is searched for.
struct FileKind {
    std::string word;                // "Wave", in titles and counts
    std::vector<std::string> masks;  // "*.wav"

    bool operator==(const FileKind&) const = default;
};

struct FoundDirectory {
    std::string path;  // in lower case with a trailing backslash
    uint32_t files;    // how many of the kind, never 0
};

struct SearchResult {
    std::vector<FoundDirectory> directories;  // in the order in which they were found
    uint32_t files = 0;                       // in all of them, and so far in the next
};

// What the search is at: the directory being read, the file found last. Asked after every name it
// reads; false stops the search.
using SearchWatch = std::function<bool(const std::string& directory, const std::string& file)>;

// Searches a whole drive, `letter` and below. Not entered are links, what refuses to be listed and
// what has too long a path. False when the watch stopped it; `result` then holds what was found.
// The watch sees `result` grow.
bool SearchDrive(char letter, const FileKind& kind, SearchResult& result, const SearchWatch& watch);

// The last search that was finished, for the same drive and kind; null when it was for others: it
// is then forgotten.
const SearchResult* LastSearch(char letter, const FileKind& kind);
void KeepSearch(char letter, const FileKind& kind, const SearchResult& result);
