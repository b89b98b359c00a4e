#include "host/state/play_span.h"

#include "data/labels.h"
#include "foundation/random.h"

PlaySpan playSpan(const DataResource& song, int range, int edge) {
    const std::int64_t length = song.getLength();
    switch (range) {
    case rangeSabi:
        return {song.getSabiStart(), song.getSabiEnd()};
    case rangeRandom:
        // A song that is too short to choose from is played from its start.
        return {length < edge ? 0 : zelkova::randomBetween(0, song.getLength() - edge), length};
    case rangeMelody:
        return {song.getIntroEnd(), song.getSabiStart()};
    case rangeStart:
        return {0, length};
    case rangeEnd:
        return {length - edge, length};
    case rangeAnswer:
        return {song.getAnsStart(), song.getAnsEnd()};
    default:
        return {song.getIntroStart(), song.getIntroEnd()};
    }
}
