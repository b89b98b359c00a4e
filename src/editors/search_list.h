#pragma once
// The catalogue as a list, whole or searched, from which songs are edited and removed.

#include <string>

#include "platform/types.h"

enum class SearchListMode {
    Search = 0, // fields to search by, over an empty list
    All = 1,    // every song, without the fields
    Pick = 2,   // as Search, and the rows of the list are the result
};

// 1 when closed by OK: in mode Pick `numbers` is then the catalogue numbers of all rows, in the order shown,
// separated by ","; "" without rows. 0 when closed otherwise. `numbers` is left alone in all other cases.
int dlgSearchList(platform::WindowHandle owner, SearchListMode mode, std::string& numbers);
