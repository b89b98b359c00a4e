#include "foundation/object.h"

#include <cstdlib>
#include <memory>
#include <typeinfo>

#include <cxxabi.h>

namespace zelkova {

std::string Object::toString(std::string, std::string, std::string, std::string) {
    return getClassName() + "::toString()";
}

std::string Object::getClassName() const {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(*this).name(), nullptr, nullptr, &status), &std::free);
    return name ? name.get() : typeid(*this).name();
}

std::string DataObject::toString(const std::string&) const {
    return getClassName();
}

} // namespace zelkova
