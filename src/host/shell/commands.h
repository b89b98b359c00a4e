#pragma once

// A command of the main menu. False when the number is none of them.
bool onCommand(int command);
