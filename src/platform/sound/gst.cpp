#include "platform/sound/gst.h"

#include <mutex>

namespace platform::sound {

bool startGstreamer() {
    static std::once_flag once;
    static bool up = false;
    std::call_once(once, [] {
        up = gst_init_check(nullptr, nullptr, nullptr);
        if (!up) return;
        // Of the synthesisers that may be installed, the one that needs nothing but a soundfont.
        GstRegistry* registry = gst_registry_get();
        if (GstPluginFeature* feature = gst_registry_lookup_feature(registry, "fluiddec")) {
            gst_plugin_feature_set_rank(feature, GST_RANK_PRIMARY + 1);
            gst_object_unref(feature);
        }
    });
    return up;
}

} // namespace platform::sound
