#pragma once

#include <unistd.h>

#include <exception>
#include <stdexcept>
#include <string>

// If root runs the test, makes the process the user "nobody" until destruction, so that file
// permissions and limits apply as they do to any other user. Does nothing for other users.
// The ids of a process belong to all of its threads, so no other thread may depend on them.
class WithoutRootRights {
public:
    // folder   becomes the property of "nobody", so that the code under test can enter it
    explicit WithoutRootRights(const std::string& folder)
    {
        if (geteuid() != 0) return;
        Require(chown(folder.c_str(), kNobody, kNobody) == 0, "chown");
        // The group first: only root may change it. access(2) and RLIMIT_NPROC use the real id.
        // The saved id remains root's, which is what lets the destructor undo this.
        Require(setregid(kNobody, kNoChange) == 0 && setegid(kNobody) == 0, "the group");
        Require(setreuid(kNobody, kNoChange) == 0 && seteuid(kNobody) == 0, "the user");
        mIsChanged = true;
    }
    ~WithoutRootRights()
    {
        if (!mIsChanged) return;
        const bool isRestored = seteuid(0) == 0 && setreuid(0, kNoChange) == 0 && setegid(0) == 0 &&
                                setregid(0, kNoChange) == 0;
        if (!isRestored) std::terminate();  // the tests that follow would run as "nobody"
    }
    WithoutRootRights(const WithoutRootRights&) = delete;
    WithoutRootRights& operator=(const WithoutRootRights&) = delete;

private:
    static constexpr id_t kNobody = 65534;
    static constexpr id_t kNoChange = static_cast<id_t>(-1);

    static void Require(bool isDone, const char* what)
    {
        if (!isDone) throw std::runtime_error(std::string("cannot give up root's rights: ") + what);
    }

    bool mIsChanged = false;
};
