#pragma once
// The question that comes when a file is to be added which the catalogue has already.

#include "data/data_resource.h"
#include "editors/resource_edit.h"
#include "platform/types.h"

enum class DuplicateAnswer : int { Cancel = 0, Edit = 1, New = 2, StopBatch = 3 };

// `known` is the entry that has the file. StopBatch is offered for one of several files only.
DuplicateAnswer dlgConfirmDuplicate(platform::WindowHandle owner, const DataResource& known,
                                    BatchPlace place = {});
