#include "foundation/process.h"

#include <utility>

#include <unistd.h>

namespace zelkova {

Process::Process(std::string program, std::string parameters)
    : program_(std::move(program)), parameters_(std::move(parameters)) {}

void Process::hold(int end, int output) {
    close();
    end_ = end;
    output_ = output;
}

void Process::close() {
    for (int* held : {&end_, &output_})
        if (const int descriptor = std::exchange(*held, none); descriptor != none) ::close(descriptor);
}

} // namespace zelkova
