#include "platform/text.h"

#include <array>
#include <stdexcept>
#include <vector>

#include <iconv.h>

namespace platform {

namespace {

constexpr char16_t emptyPlace = u'\u3013';
constexpr int trailColumns = 188; // 0x40 to 0x7E and 0x80 to 0xFC
constexpr int leadRows = 60;      // 0x81 to 0x9F and 0xE0 to 0xFC

bool isLead(unsigned byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}
bool isTrail(unsigned byte) {
    return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

int placeOf(unsigned lead, unsigned trail) {
    const int row = static_cast<int>(lead) - (lead < 0xA0 ? 0x81 : 0xE0 - 31);
    const int column = static_cast<int>(trail) - (trail < 0x7F ? 0x40 : 0x41);
    return row * trailColumns + column;
}

class Converter {
public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
        if (handle_ == reinterpret_cast<iconv_t>(-1))
            throw std::runtime_error("this system cannot convert the code page 932");
    }
    ~Converter() { iconv_close(handle_); }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // The number of bytes written, 0 when the character has no mapping.
    std::size_t character(const unsigned char* in, std::size_t inSize, unsigned char* out,
                          std::size_t outSize) {
        char* source = const_cast<char*>(reinterpret_cast<const char*>(in));
        char* target = reinterpret_cast<char*>(out);
        const std::size_t room = outSize;
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle_, &source, &inSize, &target, &outSize) == static_cast<std::size_t>(-1)) return 0;
        return room - outSize;
    }

private:
    iconv_t handle_;
};

// Both directions of the code page, asked of the C library once and then only looked up: conversion runs on
// every cell that is painted and every node that is read.
struct Tables {
    std::array<char16_t, leadRows * trailColumns> toUnicode;
    std::vector<std::uint16_t> toSjis = std::vector<std::uint16_t>(0x10000);

    Tables() {
        toUnicode.fill(emptyPlace);
        Converter decode("UTF-16LE", "CP932");
        for (unsigned lead = 0x81; lead <= 0xFC; ++lead) {
            if (!isLead(lead)) continue;
            for (unsigned trail = 0x40; trail <= 0xFC; ++trail) {
                if (!isTrail(trail)) continue;
                const unsigned char in[] = {static_cast<unsigned char>(lead),
                                            static_cast<unsigned char>(trail)};
                unsigned char out[4];
                if (decode.character(in, 2, out, sizeof out) == 2)
                    toUnicode[placeOf(lead, trail)] = static_cast<char16_t>(out[0] | out[1] << 8);
            }
        }
        // The way back is asked of the library as well: it knows which of the doubled NEC and IBM codes is
        // the preferred one, and takes the look-alikes that an input method may give (U+301C, U+2212,
        // U+2014).
        Converter encode("CP932", "UTF-16LE");
        for (unsigned unit = 1; unit < 0x10000; ++unit) {
            if (unit >= 0xD800 && unit < 0xE000) continue;
            const unsigned char in[] = {static_cast<unsigned char>(unit),
                                        static_cast<unsigned char>(unit >> 8)};
            unsigned char out[4];
            const std::size_t size = encode.character(in, 2, out, sizeof out);
            if (size == 1) toSjis[unit] = out[0];
            if (size == 2) toSjis[unit] = static_cast<std::uint16_t>(out[0] << 8 | out[1]);
        }
    }
};

const Tables& tables() {
    static const Tables instance;
    return instance;
}

void appendUtf8(std::string& out, char32_t point) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (point >> shift & 0x3F)); };
    if (point < 0x80) {
        out += static_cast<char>(point);
    } else if (point < 0x800) {
        out += static_cast<char>(0xC0 | point >> 6);
        tail(0);
    } else {
        out += static_cast<char>(0xE0 | point >> 12);
        tail(6);
        tail(0);
    }
}

// The next code point of UTF-8; U+FFFD for a byte that starts no valid sequence.
char32_t nextPoint(std::string_view text, std::size_t& at) {
    const unsigned char first = text[at++];
    if (first < 0x80) return first;
    const int more = first >= 0xF0 && first < 0xF5   ? 3
                     : first >= 0xE0 && first < 0xF0 ? 2
                     : first >= 0xC2 && first < 0xE0 ? 1
                                                     : 0;
    if (more == 0 || text.size() - at < static_cast<std::size_t>(more)) return 0xFFFD;
    char32_t point = first & (0x3F >> more);
    for (int i = 0; i < more; ++i) {
        const unsigned char byte = text[at + i];
        if ((byte & 0xC0) != 0x80) return 0xFFFD;
        point = point << 6 | (byte & 0x3F);
    }
    constexpr char32_t least[] = {0, 0x80, 0x800, 0x10000};
    if (point < least[more] || point > 0x10FFFF || (point >= 0xD800 && point < 0xE000)) return 0xFFFD;
    at += more;
    return point;
}

} // namespace

char16_t sjisToUnicode(std::uint16_t code) {
    if (code <= 0x7F) return code;
    if (code >= 0xA1 && code <= 0xDF) return static_cast<char16_t>(0xFF61 + code - 0xA1);
    const unsigned lead = code >> 8, trail = code & 0xFF;
    if (!isLead(lead) || !isTrail(trail)) return 0;
    return tables().toUnicode[placeOf(lead, trail)];
}

std::uint16_t unicodeToSjis(char16_t unit) {
    return unit < 0x80 ? unit : tables().toSjis[unit];
}

std::u16string sjisToUtf16(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned code = static_cast<unsigned char>(text[i]);
        if (code < 0x80) {
            units += static_cast<char16_t>(code);
            continue;
        }
        if (isLead(code) && i + 1 < text.size()) code = code << 8 | static_cast<unsigned char>(text[++i]);
        const char16_t unit = sjisToUnicode(static_cast<std::uint16_t>(code));
        units += unit ? unit : emptyPlace;
    }
    return units;
}

std::string utf16ToSjis(std::u16string_view units) {
    std::string text;
    text.reserve(units.size() * 2);
    for (const char16_t unit : units) {
        const std::uint16_t code = unicodeToSjis(unit);
        if (code == 0 && unit != 0) {
            text += '?';
            continue;
        }
        if (code > 0xFF) text += static_cast<char>(code >> 8);
        text += static_cast<char>(code & 0xFF);
    }
    return text;
}

// The code page has no character outside the basic plane, so its UTF-8 has three bytes at most.
std::string sjisToUtf8(std::string_view text) {
    std::string out;
    out.reserve(text.size() * 2);
    for (const char16_t unit : sjisToUtf16(text))
        appendUtf8(out, unit);
    return out;
}

std::string utf8ToSjis(std::string_view text) {
    std::u16string units;
    units.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const char32_t point = nextPoint(text, at);
        units += point > 0xFFFF ? u'\uFFFD' : static_cast<char16_t>(point);
    }
    return utf16ToSjis(units);
}

} // namespace platform
