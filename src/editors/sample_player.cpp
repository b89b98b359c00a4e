#include "editors/sample_player.h"

#include <algorithm>

#include "editors/sample_controls.h"
#include "foundation/text.h"
#include "host/state/host_state.h"

using namespace sample_controls;

namespace {

// What one count of a position is; empty where there is none.
const char* unitText(int factor) {
    return factor == 1000 ? "(1秒単位)" : factor == 100 ? "(0.1秒単位)" : "";
}

constexpr unsigned tickMs = 100;
constexpr int lineStep = 10, pageStep = 100; // position units
constexpr int normalSpeed = 100, lowestSpeed = 5, highestSpeed = 200;

} // namespace

void SamplePlayer::open(platform::WindowHandle dialog) {
    dialog_ = dialog;
    media_.create(dialog);
    volumeBar().setUp(host().editorVolume);
    speedBar().setUp(normalSpeed, 0, highestSpeed);
    for (int row = rowWhole; row < sampleRows; ++row)
        platform::setStep(control(sliderOf(row)), lineStep, pageStep);
    for (int row = rowIntro; row < sampleRows; ++row)
        for (const RangePart edit : {startEdit, endEdit})
            platform::setDigitsOnly(control(rangeId(row, edit)));
    platform::setTimer(dialog, idTimer, tickMs);
    refresh();
}

void SamplePlayer::close() {
    platform::killTimer(dialog_, idTimer);
    media_.destroy();
    // The level of this dialog is not that of the show.
    zelkova::setMasterVolume(host().masterVolume);
}

void SamplePlayer::load(const std::string& fileName) {
    file_ = openSongFile(media_, fileName);
    showFile();
}

void SamplePlayer::showFile() {
    playback_.setFile(file_);
    backwards_ = false;
    if (!playback_.canReverse()) platform::setChecked(control(idReverse), false);
    setSpeed(normalSpeed);
    media_.setVolume(host().editorVolume * 10);
    platform::setText(control(idLength), file_.measuring ? "" : zelkova::numberToText(file_.length));
    platform::setText(control(idUnit), file_.measuring ? "読込中…" : unitText(factor()));
    setLimits(rowWhole, {0, file_.length});
    showPosition(rowWhole, 0);
    for (int row = rowIntro; row < sampleRows; ++row) {
        platform::setText(control(rangeId(row, positionLabel)), "");
        checkRow(row);
    }
    refresh();
}

void SamplePlayer::show(const std::array<RangeText, songRanges>& ranges) {
    for (int row = rowIntro; row < sampleRows; ++row) {
        const RangeText& range = ranges[static_cast<std::size_t>(row - rowIntro)];
        platform::setText(control(rangeId(row, startEdit)), range.start);
        platform::setText(control(rangeId(row, endEdit)), range.end);
        checkRow(row);
    }
}

std::array<RangeText, songRanges> SamplePlayer::ranges() const {
    return {rangeText(rowIntro), rangeText(rowSabi), rangeText(rowAnswer)};
}

RangeText SamplePlayer::rangeText(int row) const {
    return {platform::getText(control(rangeId(row, startEdit))),
            platform::getText(control(rangeId(row, endEdit)))};
}

bool SamplePlayer::isRangeEdit(int id) {
    const RangeControl range = rangeControl(id);
    return range.row != noRow && range.part <= endEdit;
}

bool SamplePlayer::onCommand(int id) {
    switch (id) {
    case idPlay:
        play(rowWhole);
        return true;
    case idStop:
        stop();
        return true;
    case idNormalSpeed:
        setSpeed(normalSpeed);
        return true;
    case idCopyIntro:
        copyRange(rowIntro);
        return true;
    case idCopySabi:
        copyRange(rowSabi);
        return true;
    default:
        break;
    }
    const RangeControl range = rangeControl(id);
    if (range.row == noRow) return false;
    switch (range.part) {
    case startEdit:
    case endEdit:
        checkRow(range.row);
        return true;
    case markStart:
    case markEnd:
        mark(rangeId(range.row, range.part == markStart ? startEdit : endEdit));
        return true;
    case playButton:
        play(range.row);
        return true;
    case stopButton:
        stop();
        return true;
    default:
        return false;
    }
}

bool SamplePlayer::onMessage(const platform::Message& message) {
    if (message.id == platform::WM_TIMER && message.wParam == idTimer) {
        onTick();
        return true;
    }
    if (message.id != platform::WM_HSCROLL) return false;
    if (message.lParam == idVolume) setVolume();
    if (message.lParam == idSpeed) setSpeed(platform::getPosition(control(idSpeed)));
    for (int row = rowWhole; row < sampleRows; ++row)
        if (message.lParam == sliderOf(row)) onSlider(row);
    return true;
}

void SamplePlayer::play(int row) {
    if (row != rowWhole) setSpeed(normalSpeed);
    backwards_ = platform::isChecked(control(idReverse));
    const auto [low, high] = limits_.at(static_cast<std::size_t>(row));
    int position = platform::getPosition(control(sliderOf(row)));
    // Backwards there is nothing to hear below the lowest place.
    if (backwards_ && position <= low) position = high;
    playback_.start(row);
    playFrom(row, position);
    refresh();
}

void SamplePlayer::playFrom(int row, int position) {
    media_.seek(toMilliseconds(position, file_.type));
    if (backwards_)
        media_.playReverse();
    else if (!media_.isPlaying())
        media_.play();
    showPosition(row, position);
}

void SamplePlayer::stop() {
    media_.stop();
    // Backwards the player does not count as playing; the seek is what halts it.
    if (backwards_ && plays()) media_.seek(0);
    playback_.stop();
    refresh();
}

void SamplePlayer::endOfRow(int row) {
    stop();
    platform::setPosition(control(sliderOf(row)), limits_.at(static_cast<std::size_t>(row)).low);
}

void SamplePlayer::onTick() {
    if (file_.measuring) {
        measureSongFile(media_, file_);
        if (!file_.measuring) platform::postMessage(dialog_, msgMeasured);
        return;
    }
    const int row = playback_.activeRange();
    if (row == noRow) return;
    const int position = media_.getPosition();
    showPosition(row, position / factor());
    const auto [low, high] = limits_.at(static_cast<std::size_t>(row));
    // In milliseconds: the last unit on the way back is heard too.
    const bool over = backwards_ ? position <= toMilliseconds(low, file_.type)
                                 : position >= toMilliseconds(high, file_.type);
    if (over) endOfRow(row);
}

void SamplePlayer::onSlider(int row) {
    const int position = platform::getPosition(control(sliderOf(row)));
    if (plays())
        playFrom(row, position);
    else {
        media_.seek(toMilliseconds(position, file_.type));
        showPosition(row, position);
    }
}

void SamplePlayer::setVolume() {
    const int level = volumeBar().follow();
    host().editorVolume = level;
    media_.setVolume(level * 10);
    zelkova::setMasterVolume(level);
}

void SamplePlayer::setSpeed(int percent) {
    percent = std::max(percent, lowestSpeed);
    platform::setPosition(control(idSpeed), percent);
    speedBar().follow();
    media_.setSpeed(percent * 10);
}

void SamplePlayer::mark(int editId) {
    platform::setText(control(editId), platform::getText(control(idPosition)));
}

void SamplePlayer::copyRange(int fromRow) {
    const RangeText range = rangeText(fromRow);
    platform::setText(control(rangeId(rowAnswer, startEdit)), range.start);
    platform::setText(control(rangeId(rowAnswer, endEdit)), range.end);
}

void SamplePlayer::checkRow(int row) {
    const RangeText typed = rangeText(row);
    const std::optional<int> limit = file_.isPlayable() ? std::optional(file_.length) : std::nullopt;
    const CheckedRange range = checkRange(typed, limit);
    playback_.setRangeValid(row, range.valid);
    if (range.valid) setLimits(row, {range.start, range.end});
    refresh();
    // Each writing is a change that is checked again, so only what differs is written.
    if (range.start != zelkova::stringToInt(typed.start))
        platform::setText(control(rangeId(row, startEdit)), zelkova::numberToText(range.start));
    if (range.end != zelkova::stringToInt(typed.end))
        platform::setText(control(rangeId(row, endEdit)), zelkova::numberToText(range.end));
}

void SamplePlayer::setLimits(int row, Limits limits) {
    limits_.at(static_cast<std::size_t>(row)) = limits;
    platform::setRange(control(sliderOf(row)), limits.low, limits.high);
}

void SamplePlayer::showPosition(int row, int position) {
    const std::string text = zelkova::numberToText(position);
    // A thumb in the user's hand stays there.
    if (!platform::isHeld(control(sliderOf(row)))) platform::setPosition(control(sliderOf(row)), position);
    if (row != rowWhole) platform::setText(control(rangeId(row, positionLabel)), text);
    platform::setText(control(idPosition), text);
}

// What can be pressed now.
void SamplePlayer::refresh() {
    platform::enable(control(idPlay), playback_.canPlay(rowWhole));
    platform::enable(control(idStop), playback_.canStop(rowWhole));
    platform::enable(control(idSlider), playback_.canMove(rowWhole));
    for (int row = rowIntro; row < sampleRows; ++row) {
        platform::enable(control(rangeId(row, markStart)), playback_.canMark());
        platform::enable(control(rangeId(row, markEnd)), playback_.canMark());
        platform::enable(control(rangeId(row, slider)), playback_.canMove(row));
        platform::enable(control(rangeId(row, playButton)), playback_.canPlay(row));
        platform::enable(control(rangeId(row, stopButton)), playback_.canStop(row));
    }
    for (const int id : {+idSpeed, +idSpeedText, +idNormalSpeed})
        platform::enable(control(id), playback_.canChangeSpeed());
    platform::enable(control(idReverse), playback_.canReverse());
}

VolumeBar SamplePlayer::volumeBar() const {
    return {control(idVolume), control(idVolumeText)};
}

VolumeBar SamplePlayer::speedBar() const {
    return {control(idSpeed), control(idSpeedText)};
}
