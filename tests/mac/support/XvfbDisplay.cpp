#include "XvfbDisplay.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace {

[[noreturn]] void RunServer(int numberPipe)
{
    // The server has a process group, so that its children can be killed with it. It ends with the
    // test.
    (void)setpgid(0, 0);
    (void)prctl(PR_SET_PDEATHSIG, SIGTERM);
    const int nothing = open("/dev/null", O_RDWR);
    (void)dup2(nothing, STDOUT_FILENO);
    (void)dup2(nothing, STDERR_FILENO);
    const std::string pipe = std::to_string(numberPipe);
    execl("/usr/bin/Xvfb", "Xvfb", "-displayfd", pipe.c_str(), "-screen", "0", "640x480x24",
          "-nolisten", "tcp", static_cast<char*>(nullptr));
    _exit(127);
}

// Returns the display number, which the server writes when it is ready, or "" if it ends before.
std::string ReadNumber(int pipe)
{
    std::string number;
    for (char letter = 0; read(pipe, &letter, 1) == 1 && letter != '\n';) number += letter;
    return number;
}

}  // namespace

XvfbDisplay::XvfbDisplay()
{
    int ends[2] = {-1, -1};
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    mServer = fork();
    if (mServer == 0) {
        (void)close(ends[0]);
        RunServer(ends[1]);
    }
    (void)close(ends[1]);
    const std::string number = ReadNumber(ends[0]);
    (void)close(ends[0]);
    if (number.empty()) throw std::runtime_error("cannot start Xvfb");
    mName = ":" + number;
}

XvfbDisplay::~XvfbDisplay()
{
    // The server removes its lock file on SIGTERM. Its children are killed.
    (void)kill(mServer, SIGTERM);
    (void)waitpid(mServer, nullptr, 0);
    (void)kill(-mServer, SIGKILL);
}
