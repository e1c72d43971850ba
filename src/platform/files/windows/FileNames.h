// What Windows makes of names. These are plain rules over text, which hold on every system that asks for them.
// https://learn.microsoft.com/windows/win32/fileio/naming-a-file
#pragma once

#include <cstddef>
#include <string_view>

namespace tolvan::windows {

// Whether a file of exactly this name can be in a folder. Not so: characters that the system keeps for itself, among
// them the colon of a second stream of a file ("a.txt:b"); a blank or a full stop at the end, which it would drop;
// names of devices, whatever their ending ("con.txt"); and more than 255 units of UTF-16.
bool isFileName(std::string_view name);

// How many bytes are the drive or share at the start: "C:/" 3, "C:" 2, "//server/share/" 15; "/" 1.
std::size_t rootLength(std::string_view path);

// Whether each part of the path behind its root is a name as above, "." or "..", and the root is no way to devices
// ("//./", "//?/"). Both slashes part folders.
bool isPath(std::string_view path);

// Whether the ending of the name makes the system run the file.
bool runsByName(std::string_view name);

}  // namespace tolvan::windows
