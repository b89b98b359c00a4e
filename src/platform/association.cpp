#include "platform/association.h"

#include <filesystem>
#include <memory>

#include <gio/gio.h>

#include "platform/files.h"
#include "platform/text.h"

namespace platform {

namespace {

struct Free {
    void operator()(gchar* text) const { g_free(text); }
    void operator()(GAppInfo* program) const { g_object_unref(program); }
};
using Text = std::unique_ptr<gchar, Free>;

} // namespace

std::string programFor(const std::string& extension) {
    const std::string name = "x" + sjisToUtf8(extension);
    const Text type(g_content_type_guess(name.c_str(), nullptr, 0, nullptr));
    const std::unique_ptr<GAppInfo, Free> program(g_app_info_get_default_for_type(type.get(), FALSE));
    if (!program) return {};
    const Text path(g_find_program_in_path(g_app_info_get_executable(program.get())));
    return path ? programPath(path.get()).value_or(std::string()) : std::string();
}

} // namespace platform
