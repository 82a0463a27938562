// The text half of where copied and moved files go.
#pragma once

#include <functional>
#include <string>

// Longest directory, its trailing backslash included.
constexpr size_t kMaxDestination = 259;

enum class DestinationFault { kNone, kNoPath, kInvalid };

// What the user is told.
const char* DestinationMessage(DestinationFault fault);

// Answers whether a directory is there; the path ends in a backslash.
using DirectoryQuestion = std::function<bool(const std::string& directory)>;

// Brings a typed destination into the form "c:\dir\dir\". The drive must be a small letter,
// whatever follows it is taken as the colon, and its root must be there. A name longer than eight
// characters is cut into directories of eight, except where a directory of the whole name is there.
// The case of what follows the drive stays. `normalized` is left alone on a fault.
DestinationFault NormalizeDestination(const std::string& typed, const DirectoryQuestion& isThere,
                                      std::string& normalized);

// Cuts the destination of a single file at its last separator. Without one, what follows drive and
// colon is the name of a file in the root. No name: the file's own. Both outputs are left alone on
// a fault.
DestinationFault SplitDestination(const std::string& typed, const std::string& ownName,
                                  std::string& directory, std::string& name);

// False for a name with a character that means something else to the system: a device, a stream
// inside a file, a pattern.
bool IsTargetName(const std::string& name);
