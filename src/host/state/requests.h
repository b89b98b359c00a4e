#pragma once
// What the host asks of the terminal, one request at a time: each call notes the method, marks the request as
// open and sends it. Without a server nothing is done.

#include "host/state/kdl_state.h"

// STATUSNOTIFY with the present state and quest.
void notifyStatus();
void requestAnsRes(bool correct, int points);
void requestDspAns();
void requestRevision();

// Logs and shows the refusal of an event (message 4000003).
void refuse(int event);

// For the console's buttons: true when no request is open and the state takes the event; otherwise refuses.
bool guard(int event);

// For the others: true when the state takes the event; otherwise refuses.
bool accepts(int event);

// The states in which a quest's settings may be changed: 準備, 出題可能, 一時停止.
bool mayEditQuest();
