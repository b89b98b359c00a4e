#include "documents/contents.h"

#include <algorithm>
#include <random>
#include <utility>

namespace contents {

std::string repeated(const std::string& text, std::size_t size) {
    std::string result;
    while (result.size() < size)
        result += text;
    result.resize(size);
    return result;
}

std::string randomBytes(std::size_t size, int alphabet, unsigned seed) {
    std::mt19937 random(seed);
    std::string result;
    while (result.size() < size)
        result.push_back(static_cast<char>(random() % static_cast<unsigned>(alphabet)));
    return result;
}

std::string silent(std::size_t size) {
    std::string result;
    for (unsigned gap = 1; result.size() < size; ++gap)
        for (unsigned i = 0; i < 128 && result.size() < size; ++i)
            result += {static_cast<char>(i), static_cast<char>(128 + (i + gap) % 128)};
    result.resize(size);
    return result;
}

std::string numberedLines(std::size_t size, int step, int interleave) {
    std::string result;
    for (int line = 0; result.size() < size; ++line)
        result += "item" + std::to_string(1000000 + line * step + line % interleave * 3000000) + "\n";
    result.resize(size);
    return result;
}

std::string fibonacciWord(std::size_t size) {
    std::string shorter = "a", word = "ab";
    while (word.size() < size)
        shorter = std::exchange(word, word + shorter);
    word.resize(size);
    return word;
}

std::string copies(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::string result = "seed of it all";
    while (result.size() < size) {
        const std::size_t reach = random() % 2 != 0 ? 40000 : 300;
        std::size_t from = result.size() - 1 - random() % std::min(result.size(), reach);
        for (auto count = random() % (random() % 4 == 0 ? 400 : 20); count > 0; --count)
            result.push_back(result[from++]);
        result.push_back(static_cast<char>(random() % 200));
    }
    result.resize(size);
    return result;
}

} // namespace contents
