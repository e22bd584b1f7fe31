// What a text that is to be added names: one file, several of a folder, or an address; and names as words.
#pragma once

#include "ports/files.h"

#include <string>
#include <string_view>
#include <vector>

namespace kvo {

/// The full paths, or the address, that a text names, in its order. It is a path or an address; or a folder
/// and names of files in it, with a character 0, or two blanks and a quote, between the folder and the first
/// name, and characters 0 or quotes between the names. What is there as a file under its whole name is that
/// file, whatever is in the name.
std::vector<std::string> namesIn(const std::string& text, const Files& files);

/// Brings the tracks of a CD that are among the names ("Track03.cda") to the front, by their numbers.
void OrderCDATrackList(std::vector<std::string>& names);

/// "my+holiday%202.avi" as words: "my holiday 2".
std::string SmartName(std::string_view fileName);

/// True for a name in a network that is no part of the file system: "\\server\share\a.avi", "smb://server/".
bool isUnmapped(std::string_view name);

}  // namespace kvo
