#pragma once

#include <string>
#include <vector>

// The fonts that the host itself ships as its standard for each writing system. Main thread.

// Their PostScript names and the roots of these, in front of the first hyphen. Asked of the host at
// the first call and never again.
const std::vector<std::string>& GetIllustratorDefaultFonts();

// Whether the name begins with an entry of that list, case included. So a default font makes the
// whole of its family the host's own, and whatever else begins the same way.
bool IsIllustratorDefaultFont(const std::string& name);
