#include "platform/shell.h"

#include <unistd.h>

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "platform/detail/answers.h"
#include "platform/files.h"
#include "platform/text.h"

namespace platform {

namespace {

// An address stands as it is; anything else is a path, behind which "#" may name a place in the page.
QUrl targetUrl(const std::string& target) {
    if (target.find("://") != std::string::npos) return QUrl(QString::fromLatin1(target.c_str()));
    const std::size_t place = pathExists(target) ? std::string::npos : target.rfind('#');
    QUrl url = QUrl::fromLocalFile(QString::fromStdString(nativePath(target.substr(0, place)).string()));
    if (place != std::string::npos) url.setFragment(QString::fromLatin1(target.c_str() + place + 1));
    return url;
}

bool open(const std::string& target) {
    if (detail::Answers* scripted = detail::answers()) return scripted->open(target);
    return QDesktopServices::openUrl(targetUrl(target));
}

} // namespace

bool shellOpen(const std::string& target) {
    return open(target);
}

bool shellExplore(const std::string& folder) {
    return open(folder);
}

bool shellRun(const std::string& program, const std::string& file) {
    if (program.empty()) return false;
    const bool bareName = program.find_first_of("/\\") == std::string::npos;
    const std::string name = bareName ? sjisToUtf8(program) : nativePath(program).string();
    return QProcess::startDetached(QString::fromStdString(name),
                                   {QString::fromStdString(nativePath(file).string())});
}

std::string moduleFileName() {
    std::error_code failure;
    const auto path = std::filesystem::read_symlink("/proc/self/exe", failure);
    return failure ? std::string() : programPath(path).value_or(std::string());
}

} // namespace platform
