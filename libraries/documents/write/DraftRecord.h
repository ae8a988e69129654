#pragma once

#include <string>
#include <vector>

#include "base/FileDescriptor.h"

namespace documents {

// Records on disk that this process is about to write a temporary file into a folder. If the
// process is killed, the record tells a later one which file to delete: DeleteAbandonedDrafts.
//
// A record is a file that holds the folder's path. The process that made it keeps it locked with
// flock(2) and deletes it at the end, so a record that isn't locked belongs to a killed process.
class DraftRecord {
public:
    // recordFolder   absolute path; created if needed. Without a name there is no record.
    // draftFolder    absolute path of the folder for the temporary file
    // If the record cannot be written, a file that a killed process leaves stays there.
    DraftRecord(const std::string& recordFolder, const std::string& draftFolder);
    ~DraftRecord();
    DraftRecord(const DraftRecord&) = delete;
    DraftRecord& operator=(const DraftRecord&) = delete;

    // The path of the temporary file, as base::DraftFile takes it.
    std::string GetPattern() const;

private:
    std::string mPath;  // empty if there is no record
    std::string mDraftFolder;
    base::FileDescriptor mFile;
};

// Deletes the temporary files of killed processes and returns their paths. If one cannot be
// deleted, or its folder cannot be read, its record stays and the next call tries again.
//
// recordFolder   may be missing
std::vector<std::string> DeleteAbandonedDrafts(const std::string& recordFolder);

}  // namespace documents
