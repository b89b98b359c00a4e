#pragma once
// What a browser can show of an XML file of the program.

#include <string>

struct FilePage {
    std::string path;    // the page; "" when there is none, since the file cannot be read or no page written
    std::string problem; // why it is not the page of the file's stylesheet; "" when it is, or there is none
};

// Makes the page of the file in tmp/ beside the program's folder, in the place of the one that the file's
// name had there: as the file's stylesheet wants it (those of cnf/ stand in), or else the text of the file,
// below the problem. The file itself is no page: what the desktop opens it with may be what has asked for the
// page.
FilePage makeFilePage(const std::string& file, const std::string& programFolder);
