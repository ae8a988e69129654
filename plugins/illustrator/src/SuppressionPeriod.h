#pragma once

// The period in which the host's missing-fonts dialog is dismissed. Main thread.

// Starts a period that ends `seconds` from now, and ends the previous one. While the override file
// exists, only ends the previous one.
void SetSuppressionOfMissingFontsDialog(long seconds);

// Returns whether a period is running. It is already over in its last second.
bool GetSuppressionOfMissingFontsDialog();

// Sets the path of the override file. Empty or null: there is none.
void SetPathToSuppressionOverrideFile(const char* path);
