#pragma once

#include <string>

// The number as written in vertical text: 23 is 二十三. For the days, months and years of a date; from
// 100,001 on some numbers lose their 万. 0, and what has no place name (negative, or 1,000,000,000 and more),
// is "".
std::string toKanjiNumber(int number);
