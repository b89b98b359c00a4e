#pragma once
// IDD_KDL0904_CREATE_WRITE_APPLICATION: the event that contestants register for, and the form made of it.

#include <string>

#include "data/data_application.h"
#include "platform/types.h"

// Runs the dialog. `modulePath` is the program's folder; master and document lie beside it.
int dlgApplicationForm(platform::WindowHandle owner, const DataApplication& settings,
                       const std::string& modulePath);
