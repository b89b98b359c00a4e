// kdl-terminal: the demonstration terminal. With a window for four players, or playing a script without one.

#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

#include "foundation/text.h"
#include "platform/application.h"
#include "terminal/script.h"
#include "terminal/window.h"

namespace {

constexpr const char* usage = "kdl-terminal [--host HOST] [--port PORT] [--users NAME,NAME,NAME,NAME]\n"
                              "kdl-terminal --script FILE\n";

struct Options {
    std::string host = "127.0.0.1";
    int port = 20020;
    std::vector<std::string> users;
    std::string script;
};

bool isPort(const std::string& text) {
    const std::int32_t number = zelkova::stringToInt(text);
    return number > 0 && number <= 65535 && text == zelkova::numberToText(number);
}

std::optional<Options> readOptions(int argc, char** argv) {
    Options options;
    for (int i = 1; i < argc; i += 2) {
        const std::string_view name = argv[i];
        if (i + 1 == argc) return std::nullopt;
        const std::string value = platform::utf8ToSjis(argv[i + 1]);
        if (name == "--host")
            options.host = value;
        else if (name == "--port" && isPort(value))
            options.port = zelkova::stringToInt(value);
        else if (name == "--users")
            options.users = zelkova::split(value, ",");
        else if (name == "--script")
            options.script = argv[i + 1];
        else
            return std::nullopt;
    }
    return options;
}

int playScript(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cerr << path << ": cannot be read\n";
        return 2;
    }
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    terminal::Player player(
        [](const std::string& line) { std::cout << platform::sjisToUtf8(line) << std::endl; });
    return player.run(terminal::readScript(platform::utf8ToSjis(text))) ? 0 : 1;
}

int showWindow(const Options& options) {
    const terminal::Window window(options.host, options.port, options.users);
    platform::Message message;
    int result = 0;
    while ((result = platform::getMessage(message)) > 0)
        platform::dispatchMessage(message);
    return result < 0 ? 1 : static_cast<int>(message.wParam);
}

} // namespace

int main(int argc, char** argv) {
    platform::Application application(argc, argv);
    const auto options = readOptions(argc, argv);
    if (!options) {
        std::cerr << usage;
        return 2;
    }
    return options->script.empty() ? showWindow(*options) : playScript(options->script);
}
