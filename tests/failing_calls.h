// Lets the n-th of the calls fail by which files are saved, or the process die there.
#pragma once

#include "platform/file_calls.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <functional>

namespace zorvant {

class Saboteur {
public:
    Saboteur(int fatal, bool kills) : left_(fatal), kills_(kills) {
        const FileCalls real = SystemFileCalls();
        FileCalls& calls = fileCalls();
        calls.open = Wrap(real.open);
        calls.fchown = Wrap(real.fchown);
        calls.fchmod = Wrap(real.fchmod);
        calls.fsync = Wrap(real.fsync);
        calls.rename = Wrap(real.rename);
        calls.link = Wrap(real.link);
        calls.close = [this, real](int file) { // a failing close has closed all the same
            const int result = real.close(file);
            return Strikes() ? Fail() : result;
        };
        calls.write = [this, real](int file, const void* bytes, std::size_t count) -> ssize_t {
            if (!Strikes()) // not all at once, as the system may do it
                return real.write(file, bytes, std::min<std::size_t>(count, 30000));
            (void)real.write(file, bytes, count / 2); // some of it is on the disk by then
            return Fail();
        };
    }
    ~Saboteur() { fileCalls() = SystemFileCalls(); }
    Saboteur(const Saboteur&) = delete;
    Saboteur& operator=(const Saboteur&) = delete;

    /// Whether there was an n-th call.
    bool Struck() const { return left_ <= 0; }

private:
    bool Strikes() { return --left_ == 0; }
    int Fail() const {
        if (kills_)
            kill(getpid(), SIGKILL);
        errno = EIO;
        return -1;
    }
    template <class R, class... A> std::function<R(A...)> Wrap(std::function<R(A...)> call) {
        return
            [this, call](A... arguments) -> R { return Strikes() ? Fail() : call(arguments...); };
    }
    int left_;
    bool kills_;
};

} // namespace zorvant
