#include "platform/child_program.h"

#include "platform/detail/process.h"

namespace platform {

ChildProgram::ChildProgram(const std::vector<std::string>& command, const std::filesystem::path& output) {
    if (auto process = detail::Process::start({.command = command, .output = output}))
        process_ = std::make_unique<detail::Process>(std::move(*process));
}

ChildProgram::~ChildProgram() {
    if (!process_) return;
    process_->interrupt();
    process_->exitCode();
}

int ChildProgram::exitCode(int ms) {
    if (process_ && process_->endsWithin(ms)) {
        code_ = process_->exitCode();
        process_.reset();
    }
    return code_;
}

} // namespace platform
