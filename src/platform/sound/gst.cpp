#include "platform/sound/gst.h"

#include <mutex>

namespace platform::sound {
namespace {

// How the library is to take the element among others for the same.
void setRank(const char* element, guint rank) {
    GstPluginFeature* feature = gst_registry_lookup_feature(gst_registry_get(), element);
    if (!feature) return;
    gst_plugin_feature_set_rank(feature, rank);
    gst_object_unref(feature);
}

} // namespace

bool startGstreamer() {
    static std::once_flag once;
    static bool up = false;
    std::call_once(once, [] {
        up = gst_init_check(nullptr, nullptr, nullptr);
        if (!up) return;
        // Of the synthesisers that may be installed, the one that needs nothing but a soundfont.
        setRank("fluiddec", GST_RANK_PRIMARY + 1);
        // Goes by ways that are tried without it, and writes to the terminal when there is no card.
        setRank("openalsink", GST_RANK_NONE);
    });
    return up;
}

void warmUpGstreamer() {
    if (!startGstreamer()) return;
    // The slowest comes last; the library asks it about every kind of file, WMA or not.
    for (const char* name :
         {"filesrc", "typefind", "decodebin", "id3demux", "mpegaudioparse", "mpg123audiodec", "wavparse",
          "audioconvert", "audioresample", "appsink", "avdec_wmav2"}) {
        GstElementFactory* factory = gst_element_factory_find(name);
        if (!factory) continue;
        if (GstPluginFeature* loaded = gst_plugin_feature_load(GST_PLUGIN_FEATURE(factory)))
            gst_object_unref(loaded);
        gst_object_unref(factory);
    }
}

} // namespace platform::sound
