#include "documents/match_walk.h"

namespace HiSpeed_SlideDic {

template class BasicMatchIndex<IgnoreStep>;

} // namespace HiSpeed_SlideDic
