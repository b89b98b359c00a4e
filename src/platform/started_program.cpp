#include "platform/detail/started_program.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <memory>
#include <utility>

#include "platform/detail/delivery.h"
#include "platform/detail/process.h"
#include "platform/detail/time_source.h"

namespace platform::detail {

namespace {

// An opener that has no program for a file tells so in a moment; an editor that is closed after a while, with
// whatever code, has shown its file.
constexpr std::int64_t startMs = 10'000;

std::shared_ptr<const Process> start(const std::vector<std::string>& command) {
    auto process = Process::start({.command = command, .ownSession = true});
    return process ? std::make_shared<const Process>(std::move(*process)) : nullptr;
}

} // namespace

bool startProgram(const std::vector<std::string>& command, std::function<void()> failed) {
    const auto running = start(command);
    if (!running) return false;
    if (running->descriptor() < 0) return true; // a system that does not tell

    auto* const end =
        new QSocketNotifier(running->descriptor(), QSocketNotifier::Read, QCoreApplication::instance());
    QObject::connect(end, &QSocketNotifier::activated, end,
                     [end, running, failed = std::move(failed), latest = nowMs() + startMs] {
                         end->setEnabled(false);
                         end->deleteLater();
                         if (running->exitCode() != 0 && nowMs() <= latest) enterProgram(failed);
                     });
    return true;
}

std::function<bool()> startProgram(const std::vector<std::string>& command) {
    const auto running = start(command);
    if (!running) return [] { return false; };
    return [running, latest = nowMs() + startMs] {
        return !running->endsWithin(latest - nowMs()) || running->exitCode() == 0;
    };
}

} // namespace platform::detail
