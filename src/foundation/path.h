#pragma once
// Paths in the program's text. Both "\" and "/" separate, for files come from elsewhere; the trail byte of a
// double-byte character never does. What is made here is written with "/".

#include <string>
#include <string_view>

namespace zelkova {

bool fileExists(std::string_view path); // a folder exists too
// Absolute, without "." and ".."; a relative path counts from the program's folder.
std::string getFullPath(std::string_view path);
// A full path with "/" only. Here every full path is one; this is the name by which they are asked for.
std::string normalizePath(std::string_view path);
// Without one separator at its end.
std::string removeBackslash(std::string_view path);
std::string getModuleFileName();
// The program's folder with a separator at its end.
std::string getModuleFolder();
// Up to the last separator, without it; "" when there is none.
std::string getFolder(std::string_view path);
std::string getFileName(std::string_view path);
// Behind the last "." of the file name, in the name's own case; "" when there is none.
std::string getExtension(std::string_view path);

} // namespace zelkova
