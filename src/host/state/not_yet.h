#pragma once

// Tells the host that this version does not have the window yet.
void notYet();
