#pragma once
// What the console's buttons and lists do. The six buttons that drive the quest, and ＜ and ＞ with them, do
// nothing but show a refusal while a request to the terminal is open or the state does not take their event.

void chooseRange();
void chooseInterval();
void chooseSpeed();

// The quest is played as the console's three lists stand; takes effect with the next initResource().
void takeShownPlaySettings();

void changeStage(); // settings of the current quest's stage
void changeSongs(); // songs of the current quest's stage

void startQuest();
void replayQuest();
void stopQuest();
void pauseQuest();
void giveUpQuest(); // nobody is right
void skipQuest();
void returnToPreviousQuest(); // by way of a skip; nothing happens on the first quest

void reviseUsers();
