#pragma once

// Rebuilds the items of the "Select Library" submenu; does nothing if there is no such submenu.
// PluginCore calls it, on the main thread. The JSON library's exceptions pass through.
void RebuildWorkgroupsMenu();
