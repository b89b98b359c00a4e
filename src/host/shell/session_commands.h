#pragma once

// 出題の開始: asks for a session file, reads it whole, starts the server. Nothing has changed when the file
// cannot be used; when the port cannot be had, the lists stay filled and no session is open.
void openSession();

// 出題の終了: from the menu, from closing the window, or after a lost connection, in any state. Offers to
// save the history; does nothing while it is already under way, and without a session: it may have ended
// under the question that leads here.
void closeSession();

// The terminal has gone, or has said that it goes: our end is closed, the host is told, and the session ends.
void dropTerminal();
