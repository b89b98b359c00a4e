#pragma once
// Small change for working with GStreamer.

#include <memory>

#include <gst/gst.h>

namespace platform::sound {

// Brings the library up at the first call; the first one ever on a machine takes seconds, as the library then
// looks at all its plugins. Any thread.
bool startGstreamer();

// Loads what most songs need, so that the first one opens as fast as the others.
void warmUpGstreamer();

struct PipelineDeleter {
    void operator()(GstElement* pipeline) const {
        gst_element_set_state(pipeline, GST_STATE_NULL);
        gst_object_unref(pipeline);
    }
};
using Pipeline = std::unique_ptr<GstElement, PipelineDeleter>;

} // namespace platform::sound
