#pragma once
// IDD_KDL0602_CERTIFICATE: the certificate's texts, and the two documents that can be made of them.

#include <string>

#include "data/data_application.h"
#include "platform/types.h"

// Runs the dialog. `modulePath` is the program's folder; masters and documents lie beside it.
int dlgCertificate(platform::WindowHandle owner, const DataApplication& settings,
                   const std::string& modulePath);
