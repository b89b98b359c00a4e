#include "platform/sound/song_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iterator>

#include <gst/app/gstappsink.h>

#include "platform/sound/format.h"

namespace platform::sound {
namespace {

// Decoded and thrown away before the place of a seek: an MP3 frame leans on the bits of frames before it, and
// the first ones after a jump come out silent or broken.
constexpr std::int64_t runUpFrames = sampleRate / 5;

constexpr std::array soundfonts = {
    "/usr/share/sounds/sf2/default-GM.sf2",
    "/usr/share/sounds/sf2/TimGM6mb.sf2",
    "/usr/share/sounds/sf2/FluidR3_GM.sf2",
    "/usr/share/soundfonts/default.sf2",
};

void giveSoundfont(GstBin*, GstBin*, GstElement* element, gpointer) {
    const GstElementFactory* factory = gst_element_get_factory(element);
    if (!factory || std::strcmp(GST_OBJECT_NAME(factory), "fluiddec") != 0) return;
    const auto font = std::find_if(soundfonts.begin(), soundfonts.end(), [](const char* path) {
        std::error_code ignored;
        return std::filesystem::exists(path, ignored);
    });
    if (font != soundfonts.end()) g_object_set(element, "soundfont", *font, nullptr);
}

// A file of floats can hold anything.
float asSound(float sample) {
    return std::isfinite(sample) ? std::clamp(sample, -1.0F, 1.0F) : 0;
}

void linkDecoded(GstElement*, GstPad* pad, gpointer converter) {
    GstPad* sink = gst_element_get_static_pad(static_cast<GstElement*>(converter), "sink");
    if (!gst_pad_is_linked(sink)) gst_pad_link(pad, sink);
    gst_object_unref(sink);
}

GstBusSyncReply noteErrors(GstBus*, GstMessage* message, gpointer failed) {
    if (GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR) *static_cast<std::atomic<bool>*>(failed) = true;
    gst_message_unref(message);
    return GST_BUS_DROP;
}

} // namespace

void SongReader::open(const std::filesystem::path& path) {
    close();
    failed_ = !startGstreamer();
    if (failed_) return;
    GstElement* source = gst_element_factory_make("filesrc", nullptr);
    GstElement* decoder = gst_element_factory_make("decodebin", nullptr);
    GstElement* converter = gst_element_factory_make("audioconvert", nullptr);
    GstElement* resampler = gst_element_factory_make("audioresample", nullptr);
    sink_ = gst_element_factory_make("appsink", nullptr);
    pipeline_.reset(GST_ELEMENT(gst_object_ref_sink(gst_pipeline_new(nullptr))));
    for (GstElement* element : {source, decoder, converter, resampler, sink_}) {
        if (element)
            gst_bin_add(GST_BIN(pipeline_.get()), element);
        else
            failed_ = true; // a plugin package is missing
    }
    if (failed_) return;

    GstCaps* raw = gst_caps_new_empty_simple("audio/x-raw");
    g_object_set(decoder, "caps", raw, "expose-all-streams", FALSE, nullptr);
    gst_caps_unref(raw);
    GstCaps* caps = gst_caps_new_simple("audio/x-raw", "format", G_TYPE_STRING, "F32LE", "rate", G_TYPE_INT,
                                        sampleRate, "channels", G_TYPE_INT, static_cast<int>(channels),
                                        "layout", G_TYPE_STRING, "interleaved", nullptr);
    g_object_set(sink_, "caps", caps, "sync", FALSE, "max-buffers", 16u, "enable-last-sample", FALSE,
                 nullptr);
    gst_caps_unref(caps);
    g_object_set(source, "location", path.c_str(), nullptr);
    gst_element_link(source, decoder);
    gst_element_link_many(converter, resampler, sink_, nullptr);
    g_signal_connect(decoder, "pad-added", G_CALLBACK(linkDecoded), converter);
    g_signal_connect(pipeline_.get(), "deep-element-added", G_CALLBACK(giveSoundfont), nullptr);

    GstBus* bus = gst_element_get_bus(pipeline_.get());
    gst_bus_set_sync_handler(bus, noteErrors, &failed_, nullptr);
    gst_object_unref(bus);
    if (gst_element_set_state(pipeline_.get(), GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE) failed_ = true;
}

void SongReader::close() {
    pipeline_.reset();
    sink_ = nullptr;
    aligned_ = true;
    target_ = 0;
}

ReadResult SongReader::prepare(int waitMs) {
    if (failed_ || !pipeline_) return ReadResult::End;
    switch (gst_element_get_state(pipeline_.get(), nullptr, nullptr, waitMs * GST_MSECOND)) {
    case GST_STATE_CHANGE_FAILURE:
        return ReadResult::End;
    case GST_STATE_CHANGE_ASYNC:
        return failed_ ? ReadResult::End : ReadResult::Waiting;
    default:
        return ReadResult::Done;
    }
}

int SongReader::duration() const {
    gint64 nanoseconds = 0;
    if (!pipeline_ || !gst_element_query_duration(pipeline_.get(), GST_FORMAT_TIME, &nanoseconds)) return 0;
    return static_cast<int>(std::clamp<gint64>(nanoseconds / GST_MSECOND, 0, 86'400'000));
}

bool SongReader::seek(std::int64_t frame) {
    if (failed_ || !pipeline_) return false;
    const std::int64_t from = std::max<std::int64_t>(0, frame - runUpFrames);
    const GstClockTime time = gst_util_uint64_scale_round(static_cast<guint64>(from), GST_SECOND, sampleRate);
    target_ = frame;
    aligned_ = false;
    return gst_element_seek_simple(pipeline_.get(), GST_FORMAT_TIME,
                                   static_cast<GstSeekFlags>(GST_SEEK_FLAG_FLUSH | GST_SEEK_FLAG_ACCURATE),
                                   static_cast<gint64>(time));
}

ReadResult SongReader::read(std::vector<float>& frames, int waitMs) {
    if (!pipeline_) return ReadResult::End;
    GstAppSink* sink = GST_APP_SINK(sink_);
    GstSample* sample = gst_app_sink_try_pull_sample(sink, waitMs * GST_MSECOND);
    if (!sample) return failed_ || gst_app_sink_is_eos(sink) ? ReadResult::End : ReadResult::Waiting;
    append(sample, frames);
    gst_sample_unref(sample);
    return ReadResult::Done;
}

void SongReader::append(GstSample* sample, std::vector<float>& frames) {
    GstBuffer* buffer = gst_sample_get_buffer(sample);
    GstMapInfo map;
    if (!buffer || !gst_buffer_map(buffer, &map, GST_MAP_READ)) return;
    const auto* first = reinterpret_cast<const float*>(map.data);
    const auto count = static_cast<std::int64_t>(map.size / (sizeof(float) * channels));
    std::int64_t skip = 0;
    if (!aligned_) {
        const GstClockTime time = gst_segment_to_stream_time(gst_sample_get_segment(sample), GST_FORMAT_TIME,
                                                             GST_BUFFER_PTS(buffer));
        if (GST_CLOCK_TIME_IS_VALID(time))
            skip = std::max<std::int64_t>(0, target_ - static_cast<std::int64_t>(gst_util_uint64_scale_round(
                                                           time, sampleRate, GST_SECOND)));
        aligned_ = skip < count;
    }
    if (skip < count)
        std::transform(first + skip * channels, first + count * channels, std::back_inserter(frames),
                       asSound);
    gst_buffer_unmap(buffer, &map);
}

} // namespace platform::sound
