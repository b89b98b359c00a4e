#pragma once
// The dialog that gives one stage its settings.

#include "editors/stage_form.h"
#include "platform/types.h"

// 1 when the stage was written, 0 when it stays as it was.
int dlgPartDetail(platform::WindowHandle owner, StageMode mode, DataSession& stage);
