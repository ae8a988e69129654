#pragma once

// What the plug-in does with notifiers, menus and files.
namespace wrong {

// Handles "AI Notify" of a notifier with this type about this document, which may be null.
void HandleNotifier(const char* type, void* document);

// Handles the check of a file, whose path may be null.
void HandleCheck(void* path);

}  // namespace wrong
