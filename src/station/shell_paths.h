// Small path helpers of the shell, and the breadth-first walk of a folder. Standard library
// only: the sky displays, tarvelle-cli and the tests share them. The separator is "/".
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvelle {

// The path without any trailing separators: "a/b//" gives "a/b", and "/" gives "".
std::string StripTrailingSlash(std::string_view path);

// What follows the last separator: the file name. A text without a separator is itself.
std::string LastPathPart(std::string_view path);

// Every file under root, breadth first: the files of a folder come before those of its
// subfolders. Each folder's entries are taken in name order, "." and ".." left out, and each
// full path is folder + "/" + name, with root as given (callers strip a trailing separator
// first). Found files are appended to files; folderCount and fileCount start at 0 and count
// the folders queued and the files found. A folder that cannot be read adds nothing, and a
// linked folder already walked is not walked again, so links cannot make the walk loop.
// A window that calls this shows the wait cursor around it.
void ListFiles(const std::string& root, std::vector<std::string>& files, int& folderCount, int& fileCount);

// Creates the folder and any missing parents. On failure returns false with a description of
// the cause in error, for the message the directory chooser shows.
bool MakeFolder(const std::string& path, std::string& error);

} // namespace tarvelle
