#pragma once
// The four users on the console: state, name, rank, score and false starts, one column each.

// Works out the ranks and shows all users. Called after everything that changes a user.
void refreshUserPane();
