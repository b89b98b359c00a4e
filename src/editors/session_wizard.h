#pragma once
// The wizard that makes or changes a session file in four pages.

#include "platform/types.h"

// Nothing is written before the last page.
void dlgSessionWizard(platform::WindowHandle owner);
