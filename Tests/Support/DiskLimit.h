#ifndef TESTS_DISKLIMIT_H
#define TESTS_DISKLIMIT_H

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// Below this limit on the size of a file, writing fails as on a full disk.
class DiskLimit
{
public:
    explicit DiskLimit(qint64 bytes)
        : _handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit limit{static_cast<rlim_t>(bytes), _before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~DiskLimit()
    {
        setrlimit(RLIMIT_FSIZE, &_before);
        std::signal(SIGXFSZ, _handler);
    }

private:
    void (*_handler)(int);
    rlimit _before{};
};

#endif // TESTS_DISKLIMIT_H
