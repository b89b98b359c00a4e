#include "platform/sound/speed_changer.h"

#include <algorithm>

#include <gst/audio/audio-resampler.h>

#include "platform/sound/format.h"
#include "platform/sound/gst.h"
#include "platform/sound/limits.h"

namespace platform::sound {

void SpeedChanger::Free::operator()(_GstAudioResampler* resampler) const {
    gst_audio_resampler_free(resampler);
}

SpeedChanger::SpeedChanger(int thousandths) {
    if (thousandths == normalSpeed || !startGstreamer()) return;
    constexpr auto method = GST_AUDIO_RESAMPLER_METHOD_KAISER;
    GstStructure* options = gst_structure_new_empty("options");
    gst_audio_resampler_options_set_quality(method, GST_AUDIO_RESAMPLER_QUALITY_DEFAULT, thousandths,
                                            normalSpeed, options);
    resampler_.reset(gst_audio_resampler_new(method, GST_AUDIO_RESAMPLER_FLAG_NONE, GST_AUDIO_FORMAT_F32,
                                             static_cast<int>(channels), thousandths, normalSpeed, options));
    gst_structure_free(options);
}

void SpeedChanger::forget() {
    if (resampler_) gst_audio_resampler_reset(resampler_.get());
}

std::size_t SpeedChanger::framesFor(std::size_t count) {
    return resampler_ ? gst_audio_resampler_get_in_frames(resampler_.get(), count) : count;
}

void SpeedChanger::change(std::span<float> frames, std::span<float> block) {
    if (!resampler_) {
        std::copy(frames.begin(), frames.end(), block.begin());
        return;
    }
    gpointer in[] = {frames.data()};
    gpointer out[] = {block.data()};
    gst_audio_resampler_resample(resampler_.get(), in, frames.size() / channels, out,
                                 block.size() / channels);
}

} // namespace platform::sound
