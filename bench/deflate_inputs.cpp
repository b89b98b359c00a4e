#include "deflate_inputs.h"

#include <cmath>
#include <random>
#include <vector>

#include "platform/files.h"
#include "support/office.h"
#include "support/zip_reader.h"

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

Document read(const std::string& archive) {
    Document document;
    for (const test_support::ReadEntry& entry :
         test_support::readArchive(platform::readFile(archive).value_or(""))) {
        document.files.push_back(entry.content);
        if (entry.name == "content.xml") document.content = entry.content;
    }
    return document;
}

} // namespace

Document certificate() {
    const test_support::Office office;
    office.makeCertificate(test_support::certificateOf("山田　花子"));
    return read(office.certificate());
}

Document applicationForm() {
    const test_support::Office office;
    office.makeForm(test_support::registOf(5));
    return read(office.form());
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
