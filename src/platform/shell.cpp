#include "platform/shell.h"

#include <QUrl>

#include "platform/detail/answers.h"
#include "platform/detail/program_folder.h"
#include "platform/detail/started_program.h"
#include "platform/files.h"
#include "platform/text.h"

namespace platform {

namespace {

// The command by which any desktop opens what its user would double-click. Its code tells whether it could.
constexpr const char* opener = "xdg-open";

// An address stands as it is; anything else is a path, behind which "#" may name a place in the page.
std::string openersName(const std::string& target) {
    if (target.find("://") != std::string::npos) return sjisToUtf8(target);
    const std::size_t place = pathExists(target) ? std::string::npos : target.rfind('#');
    const std::string path = nativePath(target.substr(0, place)).string();
    if (place == std::string::npos) return path;
    QUrl url = QUrl::fromLocalFile(QString::fromStdString(path));
    url.setFragment(QString::fromStdString(sjisToUtf8(target.substr(place + 1))));
    return url.toString(QUrl::FullyEncoded).toStdString();
}

void start(const std::vector<std::string>& command, const NotOpened& notOpened) {
    if (!detail::startProgram(command, notOpened)) notOpened();
}

} // namespace

void shellOpen(const std::string& target, const NotOpened& notOpened) {
    if (detail::Answers* scripted = detail::answers()) {
        if (!scripted->open(target)) notOpened();
    } else {
        start({opener, openersName(target)}, notOpened);
    }
}

std::function<bool()> shellOpenAtEnd(const std::string& target) {
    if (detail::Answers* scripted = detail::answers())
        return [opened = scripted->open(target)] { return opened; };
    return detail::startProgram({opener, openersName(target)});
}

void shellRun(const std::string& program, const std::string& file, const NotOpened& notOpened) {
    const bool bareName = program.find_first_of("/\\") == std::string::npos;
    start({bareName ? sjisToUtf8(program) : nativePath(program).string(), nativePath(file).string()},
          notOpened);
}

std::string moduleFileName() {
    return programPath(detail::executable()).value_or(std::string());
}

} // namespace platform
