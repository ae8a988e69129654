#pragma once

#include "documents/model/Document.h"

namespace documents {

// Sets the members of a report that are about the document as a whole.
//
// report   a struct with the members reader, note, creator, isTemplate, frames, stories and runs
template <class Report>
void CopyFacts(const Document& document, Report& report)
{
    report.reader = document.reader;
    report.note = JoinNotes(document);
    report.creator = document.creator;
    report.isTemplate = document.isTemplate;
    report.frames = document.frames.size();
    report.stories = document.stories.size();
    report.runs = 0;
    for (const TextFrame& frame : document.frames) report.runs += frame.runs.size();
}

}  // namespace documents
