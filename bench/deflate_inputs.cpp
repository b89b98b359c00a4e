#include "deflate_inputs.h"

#include <cmath>
#include <random>
#include <vector>

namespace inputs {

namespace {

// The library's distributions differ between compilers; this does not.
class Dice {
public:
    std::uint32_t below(std::uint32_t end) { return static_cast<std::uint32_t>(engine_() % end); }
    // Small numbers far more often than great ones, as words are used.
    std::uint32_t skewed(std::uint32_t end) {
        const double unit = (below(1u << 20) + 0.5) / (1u << 20);
        return static_cast<std::uint32_t>(std::pow(static_cast<double>(end) + 1.0, unit)) % end;
    }

private:
    std::mt19937 engine_{20240407};
};

void appendUtf8(std::string& text, std::uint32_t character) {
    text += static_cast<char>(0xE0 | character >> 12);
    text += static_cast<char>(0x80 | (character >> 6 & 63));
    text += static_cast<char>(0x80 | (character & 63));
}

class Writer {
public:
    Writer() {
        for (int i = 0; i < 4000; ++i) {
            std::string word;
            const std::uint32_t kind = dice_.below(10);
            for (std::uint32_t n = 1 + dice_.below(kind < 5 ? 3 : 4); n > 0; --n)
                appendUtf8(word, kind < 5   ? 0x4E00 + dice_.skewed(2000) * 7
                                 : kind < 8 ? 0x3042 + dice_.below(80)
                                            : 0x30A1 + dice_.below(84));
            words_.push_back(word);
        }
        for (int i = 0; i < 15; ++i) {
            particles_.emplace_back();
            appendUtf8(particles_.back(), 0x3042 + dice_.below(80));
        }
    }
    const std::string& word() { return words_[dice_.skewed(4000)]; }
    std::string sentence() {
        std::string text;
        for (std::uint32_t n = 3 + dice_.below(6); n > 0; --n)
            text += word() + particles_[dice_.skewed(15)];
        appendUtf8(text, 0x3002);
        return text;
    }
    Dice& dice() { return dice_; }

private:
    Dice dice_;
    std::vector<std::string> words_, particles_;
};

std::string styles(int count) {
    std::string text;
    for (int i = 1; i <= count; ++i) {
        const std::string n = std::to_string(i);
        text += "<style:style style:name=\"P" + n +
                "\" style:family=\"paragraph\" style:parent-style-name=\"Standard\">"
                "<style:paragraph-properties fo:margin-left=\"" +
                std::to_string(i * 3 % 7) + "cm\" fo:text-align=\"" + (i % 3 == 0 ? "center" : "start") +
                "\" style:justify-single-word=\"false\"/><style:text-properties fo:font-size=\"" +
                std::to_string(9 + i * 5 % 30) +
                "pt\" style:font-name-asian=\"IPAMincho\" fo:letter-spacing=\"0." + std::to_string(i % 9) +
                "cm\"/></style:style>\n";
    }
    return text;
}

constexpr char head[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<office:document-content "
    "xmlns:office=\"urn:oasis:names:tc:opendocument:xmlns:office:1.0\" "
    "xmlns:style=\"urn:oasis:names:tc:opendocument:xmlns:style:1.0\" "
    "xmlns:text=\"urn:oasis:names:tc:opendocument:xmlns:text:1.0\" "
    "xmlns:table=\"urn:oasis:names:tc:opendocument:xmlns:table:1.0\" "
    "xmlns:draw=\"urn:oasis:names:tc:opendocument:xmlns:drawing:1.0\" office:version=\"1.2\">\n";

} // namespace

std::string certificate() {
    Writer writer;
    std::string text = head + styles(24);
    for (int frame = 0; frame < 40; ++frame)
        text += "<draw:frame draw:style-name=\"fr1\" draw:name=\"frame" + std::to_string(frame) +
                "\" svg:x=\"" + std::to_string(frame * 37 % 29) + ".5cm\" svg:y=\"" +
                std::to_string(frame * 17 % 19) + ".25cm\"><draw:text-box><text:p text:style-name=\"P" +
                std::to_string(frame % 24) + "\">" + writer.sentence() +
                "</text:p></draw:text-box></draw:frame>\n";
    return text + "</office:document-content>\n";
}

std::string applicationForm() {
    Writer writer;
    std::string text = head + styles(60);
    for (int row = 0; row < 60; ++row) {
        text += "<table:table-row table:style-name=\"T2." + std::to_string(row % 12) + "\">";
        for (int cell = 0; cell < 5; ++cell)
            text += "<table:table-cell table:style-name=\"T2.C" + std::to_string(cell) +
                    "\" office:value-type=\"string\" table:number-columns-spanned=\"2\"><text:p "
                    "text:style-name=\"P" +
                    std::to_string(10 + cell) + "\">" + writer.word() +
                    "</text:p></table:table-cell><table:covered-table-cell/>";
        text += "</table:table-row>\n";
    }
    return text + "</office:document-content>\n";
}

std::string japaneseText(std::size_t size) {
    Writer writer;
    std::string text;
    while (text.size() < size)
        text += writer.sentence() + (writer.dice().below(5) == 0 ? "\n" : "");
    text.resize(size);
    return text;
}

std::string catalogue(std::size_t size) {
    Writer writer;
    std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<ResourceData>\n";
    for (int song = 0; text.size() < size; ++song)
        text += "  <Resource Id=\"" + std::to_string(song) + "\">\n    <Title>" + writer.word() +
                writer.word() + "</Title>\n    <Artist>" + writer.word() + "</Artist>\n    <File>music/" +
                std::to_string(writer.dice().below(100000)) + ".mp3</File>\n    <Start>" +
                std::to_string(writer.dice().below(100000)) + "</Start>\n    <End>" +
                std::to_string(writer.dice().below(300000)) + "</End>\n  </Resource>\n";
    text.resize(size);
    return text;
}

std::string randomBytes(std::size_t size) {
    std::mt19937 engine;
    std::string bytes;
    while (bytes.size() < size)
        bytes.push_back(static_cast<char>(engine()));
    return bytes;
}

std::string oneByte(std::size_t size) {
    return std::string(size, 'a');
}

std::string bitmap(std::size_t size) {
    Dice dice;
    std::string pixels;
    for (int y = 0; pixels.size() < size; ++y)
        for (int x = 0; x < 1024; ++x) {
            const int grain = (x / 64 + y / 64) % 3 == 0 ? static_cast<int>(dice.below(8)) : 0;
            const int shade =
                static_cast<int>(127 + 60 * std::sin(x / 40.0) + 60 * std::cos(y / 70.0)) + grain;
            pixels += {static_cast<char>(shade), static_cast<char>(shade * 2 / 3),
                       static_cast<char>(255 - shade), '\0'};
        }
    pixels.resize(size);
    return pixels;
}

std::string twoBytesInTurn(std::size_t size) {
    std::string bytes;
    while (bytes.size() < size)
        bytes += "ab";
    return bytes;
}

std::string risingNumbers(std::size_t size) {
    std::string text;
    for (int line = 0; text.size() < size; ++line)
        text += "item" + std::to_string((line % 2 == 0 ? 1000000 : 3000000) + line) + "\n";
    text.resize(size);
    return text;
}

} // namespace inputs
