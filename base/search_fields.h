// Which fields of the catalogue's entries a search for a text looks at.
#pragma once

struct SearchFields {
    bool track = true;
    bool artist = true;
    bool discName = true;
    bool category = true;
    bool label = true;
    bool notes = true;
    bool yearReleased = true;

    bool operator==(const SearchFields&) const = default;
};
