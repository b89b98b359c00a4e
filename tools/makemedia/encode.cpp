#include "makemedia/encode.h"

#include <gst/app/gstappsrc.h>
#include <gst/gst.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>

namespace makemedia {
namespace {

struct Unref {
    void operator()(GstElement* element) const { gst_object_unref(element); }
    void operator()(GstMessage* message) const { gst_message_unref(message); }
    void operator()(GstBus* bus) const { gst_object_unref(bus); }
    void operator()(GstCaps* caps) const { gst_caps_unref(caps); }
};
template <class T>
using Owned = std::unique_ptr<T, Unref>;

const char* encoder(Encoding encoding) {
    switch (encoding) {
    case Encoding::Mp3Constant:
        return "lamemp3enc target=bitrate bitrate=112 cbr=true";
    case Encoding::Mp3ConstantXing:
        return "lamemp3enc target=bitrate bitrate=112 cbr=true ! xingmux";
    case Encoding::Mp3Variable:
        return "lamemp3enc target=quality quality=5";
    case Encoding::Mp3VariableXing:
        return "lamemp3enc target=quality quality=5 ! xingmux";
    case Encoding::Wma:
        return "avenc_wmav2 bitrate=96000 ! asfmux";
    case Encoding::Wav:
    case Encoding::Midi:
        break;
    }
    return nullptr;
}

// The muxer marks each file with a random identifier, twice, and the time of the day. All are set to
// something fixed, so that the same music gives the same file. (Advanced Systems Format: an object is its
// GUID, 8 bytes of size, then its fields. File Properties has the file's identifier, 8 bytes of file size and
// 8 of creation date; Data begins with the same identifier.)
void fixAsfIdentity(const std::filesystem::path& file) {
    constexpr std::string_view fileProperties(
        "\xA1\xDC\xAB\x8C\x47\xA9\xCF\x11\x8E\xE4\x00\xC0\x0C\x20\x53\x65", 16);
    constexpr std::string_view data("\x36\x26\xB2\x75\x8E\x66\xCF\x11\xA6\xD9\x00\xAA\x00\x62\xCE\x6C", 16);
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    std::string head(4096, '\0');
    stream.read(head.data(), static_cast<std::streamsize>(head.size()));
    const auto overwrite = [&](std::string_view object, std::size_t offset, const std::string& with) {
        const auto at = head.find(object);
        if (at == std::string::npos) return;
        stream.clear();
        stream.seekp(static_cast<std::streamoff>(at + offset));
        stream << with;
    };
    const std::string identifier(16, '\x4B');
    overwrite(fileProperties, 24, identifier);
    overwrite(fileProperties, 48, std::string(8, '\0'));
    overwrite(data, 24, identifier);
}

// False when the pipeline broke.
bool waitForEnd(GstElement* pipeline, std::string& error) {
    Owned<GstBus> bus{gst_element_get_bus(pipeline)};
    Owned<GstMessage> message{gst_bus_timed_pop_filtered(
        bus.get(), GST_CLOCK_TIME_NONE, static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR))};
    if (GST_MESSAGE_TYPE(message.get()) == GST_MESSAGE_EOS) return true;
    GError* failure = nullptr;
    gst_message_parse_error(message.get(), &failure, nullptr);
    error = failure->message;
    g_error_free(failure);
    return false;
}

} // namespace

bool encode(const Pcm& pcm, Encoding encoding, const std::filesystem::path& file, std::string& error) {
    const char* name = encoder(encoding);
    if (!name) {
        error = "not a compressed format";
        return false;
    }
    const auto description =
        std::string("appsrc name=in format=time ! audioconvert ! ") + name + " ! filesink name=out";
    GError* failure = nullptr;
    Owned<GstElement> pipeline{gst_parse_launch(description.c_str(), &failure)};
    if (failure) {
        error = failure->message;
        g_error_free(failure);
        return false;
    }
    Owned<GstElement> in{gst_bin_get_by_name(GST_BIN(pipeline.get()), "in")};
    Owned<GstElement> out{gst_bin_get_by_name(GST_BIN(pipeline.get()), "out")};
    g_object_set(out.get(), "location", file.c_str(), nullptr);
    Owned<GstCaps> caps{gst_caps_new_simple("audio/x-raw", "format", G_TYPE_STRING, "S16LE", "layout",
                                            G_TYPE_STRING, "interleaved", "rate", G_TYPE_INT, pcm.rate,
                                            "channels", G_TYPE_INT, pcm.channels, nullptr)};
    gst_app_src_set_caps(GST_APP_SRC(in.get()), caps.get());

    const auto samples = toSixteenBit(pcm);
    GstBuffer* buffer = gst_buffer_new_memdup(samples.data(), samples.size() * sizeof samples[0]);
    GST_BUFFER_PTS(buffer) = 0;
    GST_BUFFER_DURATION(buffer) =
        gst_util_uint64_scale(pcm.frames(), GST_SECOND, static_cast<guint64>(pcm.rate));
    gst_element_set_state(pipeline.get(), GST_STATE_PLAYING);
    gst_app_src_push_buffer(GST_APP_SRC(in.get()), buffer); // takes the buffer
    gst_app_src_end_of_stream(GST_APP_SRC(in.get()));
    const bool done = waitForEnd(pipeline.get(), error);
    gst_element_set_state(pipeline.get(), GST_STATE_NULL);
    if (done && encoding == Encoding::Wma) fixAsfIdentity(file);
    return done;
}

} // namespace makemedia
