#include "Probe.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>

namespace {

thread_local int sCounter = 41;
thread_local int sZero;

pthread_mutex_t sMutex = PTHREAD_MUTEX_INITIALIZER;
pthread_cond_t sCondition = PTHREAD_COND_INITIALIZER;

struct Thrown {
    std::string text;
    int value;
};

int sDestroyed = 0;

struct Destroyed {
    ~Destroyed() { ++sDestroyed; }
};

[[gnu::noinline]] void Throw(const char* kind)
{
    const Destroyed object;
    if (std::strcmp(kind, "int") == 0) throw 4711;
    if (std::strcmp(kind, "object") == 0) throw Thrown{"a text that is longer than 22 bytes", 4712};
    throw std::out_of_range("a text that is longer than 22 bytes");
}

// Uses all registers that a function must save, so that the frame has all of them.
[[gnu::noinline]] int PassOn(const char* kind, int depth)
{
    const Destroyed object;
    int values[6];
    for (int index = 0; index < 6; ++index) values[index] = depth * 7 + index;
    asm volatile("" : : : "rbx", "r12", "r13", "r14", "r15");
    if (depth != 0) {
        return PassOn(kind, depth - 1) + values[depth];
    }
    Throw(kind);
    return values[0];
}

// Saves some of the registers, destroys them, and throws. Only its own frame can restore them.
[[gnu::noinline]] void ThrowDirectly()
{
    asm volatile("movq $1, %%r12\n\tmovq $1, %%r13\n\tmovq $1, %%r15"
                 :
                 :
                 : "r12", "r13", "r15", "memory");
    throw 4713;
}

void Catch(const char* kind, ProbeThrow& result)
{
    sDestroyed = 0;
    volatile int seed = 5;
    int a = seed + 1, b = seed + 2, c = seed + 3, d = seed + 4, e = seed + 5;
    // Five variables that live in registers while the exception passes.
    asm volatile("" : "+r"(a), "+r"(b), "+r"(c), "+r"(d), "+r"(e));
    try {
        if (std::strcmp(kind, "direct") == 0) ThrowDirectly();
        result.caught = PassOn(kind, 1);
    } catch (const Thrown& thrown) {
        result.caught = thrown.value + (thrown.text.size() == 35 ? 0 : 1);
    } catch (int value) {
        result.caught = value;
    } catch (const std::logic_error& error) {
        result.caught = static_cast<int>(std::strlen(error.what()));
    }
    asm volatile("" : "+r"(a), "+r"(b), "+r"(c), "+r"(d), "+r"(e));
    result.destroyed = sDestroyed;
    result.kept = a == 6 && b == 7 && c == 8 && d == 9 && e == 10;
}

void GetStatus(ProbeStatus& request)
{
    struct stat status = {};
    request.result = stat(request.path, &status);
    request.isFolder = S_ISDIR(status.st_mode);
    request.size = status.st_size;
    request.seconds = status.st_mtimespec.tv_sec;
}

void Append(ProbeAppend& request)
{
    const int file = open(request.path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0640);
    request.error = file < 0 ? errno : 0;
    if (file < 0) return;
    request.result = static_cast<int>(write(file, request.text, std::strlen(request.text)));
    close(file);
}

struct AtEnd {
    const char* text;
    ~AtEnd()
    {
        if (sIsOn) (void)!write(STDERR_FILENO, text, std::strlen(text));
    }
    static bool sIsOn;
};

bool AtEnd::sIsOn = false;
AtEnd sFirst = {"first\n"};
AtEnd sSecond = {"second "};

int UseMutex()
{
    // The second round has the marks of the initialisers replaced.
    for (int round = 0; round < 2; ++round) {
        if (pthread_mutex_lock(&sMutex) != 0) return 1;
        if (pthread_cond_signal(&sCondition) != 0) return 2;
        const timespec past = {1, 0};
        if (pthread_cond_timedwait(&sCondition, &sMutex, &past) != ETIMEDOUT) return 3;
        if (pthread_mutex_unlock(&sMutex) != 0) return 4;
    }
    return 42;
}

}  // namespace

extern "C" int PluginMain(char*, char* selector, void* message)
{
    const std::string name = selector;
    if (name == "thread-local") {
        *static_cast<int*>(message) = ++sCounter + 100 * ++sZero;
    } else if (name == "static-mutex") {
        *static_cast<int*>(message) = UseMutex();
    } else if (name == "status") {
        GetStatus(*static_cast<ProbeStatus*>(message));
    } else if (name == "append") {
        Append(*static_cast<ProbeAppend*>(message));
    } else if (name == "at-exit") {
        AtEnd::sIsOn = true;
    } else {
        Catch(selector, *static_cast<ProbeThrow*>(message));
    }
    return 0;
}
