#include "platform/sound/speaker_line.h"

#include <chrono>
#include <cstring>
#include <vector>

#include <gst/app/gstappsrc.h>

#include "platform/sound/format.h"

namespace platform::sound {
namespace {

// What waits inside the card's buffer is heard after a stop; below this, busy machines begin to crackle.
constexpr gint64 bufferMicroseconds = 40'000;
constexpr gint64 periodMicroseconds = 10'000;
constexpr auto startLimit = 5 * GST_SECOND;
constexpr auto roomLimit = std::chrono::milliseconds(500);

// Sees each sink that the automatic choice tries, the last one being the choice.
void setUpSink(GstBin*, GstBin*, GstElement* element, gpointer standIn) {
    if (!GST_OBJECT_FLAG_IS_SET(element, GST_ELEMENT_FLAG_SINK) || GST_IS_BIN(element)) return;
    const GstElementFactory* factory = gst_element_get_factory(element);
    *static_cast<std::atomic<bool>*>(standIn) =
        factory && std::strcmp(GST_OBJECT_NAME(factory), "fakesink") == 0;
    GObjectClass* kind = G_OBJECT_GET_CLASS(element);
    if (!g_object_class_find_property(kind, "buffer-time")) return;
    // The card takes blocks as it plays them; timestamps would make it skip after any delay.
    g_object_set(element, "buffer-time", bufferMicroseconds, "latency-time", periodMicroseconds, "sync",
                 FALSE, nullptr);
}

} // namespace

std::shared_ptr<OutputLine> SpeakerLine::open() {
    auto line = std::make_shared<SpeakerLine>();
    return startGstreamer() && line->start() ? line : nullptr;
}

SpeakerLine::~SpeakerLine() {
    pipeline_.reset(); // its threads call back into this object until it is down
}

bool SpeakerLine::start() {
    source_ = gst_element_factory_make("appsrc", nullptr);
    GstElement* converter = gst_element_factory_make("audioconvert", nullptr);
    GstElement* resampler = gst_element_factory_make("audioresample", nullptr);
    GstElement* sink = gst_element_factory_make("autoaudiosink", nullptr);
    pipeline_.reset(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    g_signal_connect(pipeline_.get(), "deep-element-added", G_CALLBACK(setUpSink), &standIn_);
    for (GstElement* element : {source_, converter, resampler, sink}) {
        if (element)
            gst_bin_add(GST_BIN(pipeline_.get()), element);
        else
            broken_ = true;
    }
    if (broken_) return false;
    GstCaps* caps = gst_caps_new_simple("audio/x-raw", "format", G_TYPE_STRING, "S16LE", "rate", G_TYPE_INT,
                                        sampleRate, "channels", G_TYPE_INT, static_cast<int>(channels),
                                        "layout", G_TYPE_STRING, "interleaved", nullptr);
    g_object_set(source_, "caps", caps, "format", GST_FORMAT_TIME, "do-timestamp", FALSE, nullptr);
    gst_caps_unref(caps);
    GstAppSrcCallbacks callbacks = {};
    callbacks.need_data = [](GstAppSrc*, guint, gpointer self) { wantData(self); };
    gst_app_src_set_callbacks(GST_APP_SRC(source_), &callbacks, this, nullptr);
    gst_element_link_many(source_, converter, resampler, sink, nullptr);
    GstBus* bus = gst_element_get_bus(pipeline_.get());
    gst_bus_set_sync_handler(bus, noteErrors, this, nullptr);
    gst_object_unref(bus);

    // The card comes up only with something to play.
    const std::vector<std::int16_t> silence(blockFrames * channels * 2);
    write(silence);
    return gst_element_set_state(pipeline_.get(), GST_STATE_PLAYING) != GST_STATE_CHANGE_FAILURE &&
           gst_element_get_state(pipeline_.get(), nullptr, nullptr, startLimit) == GST_STATE_CHANGE_SUCCESS &&
           !broken_ && !standIn_;
}

GstBusSyncReply SpeakerLine::noteErrors(GstBus*, GstMessage* message, gpointer self) {
    auto* line = static_cast<SpeakerLine*>(self);
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR) {
        const std::lock_guard lock(line->mutex_);
        line->broken_ = true;
        line->wanted_.notify_one();
    }
    gst_message_unref(message);
    return GST_BUS_DROP;
}

void SpeakerLine::wantData(void* self) {
    auto* line = static_cast<SpeakerLine*>(self);
    const std::lock_guard lock(line->mutex_);
    line->wants_ = true;
    line->wanted_.notify_one();
}

bool SpeakerLine::waitForRoom() {
    std::unique_lock lock(mutex_);
    const bool wanted = wanted_.wait_for(lock, roomLimit, [&] { return wants_ || broken_; });
    wants_ = false;
    return wanted && !broken_;
}

void SpeakerLine::write(std::span<const std::int16_t> samples) {
    GstBuffer* buffer = gst_buffer_new_memdup(samples.data(), samples.size_bytes());
    if (gst_app_src_push_buffer(GST_APP_SRC(source_), buffer) != GST_FLOW_OK) broken_ = true;
}

} // namespace platform::sound
