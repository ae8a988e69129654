#pragma once

#include <string>

// The stable and readable form of a journal that a golden file contains: one line per message and
// call, without times and numbers of lines, and without what differs from run to run.
//
// - Of the suites, the calls remain by which the plug-in changes the host: menus, notifiers, timers
//   and file formats. What it reads from the others is in the calls of PluginCore.
// - What is there for replays only is left out.
// - Handles have numbers in the order in which they appear, and menu items their text.
// - A menu tree is printed once, with a line per item, and then called by its number.
// - One line replaces update messages that have the same effect as the one before, and ticks in
//   which nothing happens as in the one before.
//
// scratch   the folder of the test; replaced by SCRATCH
std::string MakeGolden(const std::string& journal, const std::string& scratch);

// The journal as it is kept for replays: all of its lines, without their numbers and times. The
// times of files are replaced by others in the same order.
std::string MakeReplay(const std::string& journal, const std::string& scratch);
