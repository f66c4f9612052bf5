#pragma once

#include <QByteArray>

#include <vector>

/// Lets system calls on files below one folder fail, or end the process, at a chosen moment.
///
/// The source file stands in for the C library's functions in the executable it is linked into, and
/// passes calls on as long as nothing is armed. One thread only.
namespace FaultInjection {

enum class Call
{
    Open,
    Read,
    Write,
    Seek,
    Truncate,
    Sync,
    Close,
    Link,
    Rename,
    MakeFolder,
    List,
    Look,
    Space ///< asks for the free room of a disk; fails by finding none
};
inline constexpr Call kCalls[] = {
    Call::Open, Call::Read,   Call::Write,      Call::Seek, Call::Truncate, Call::Sync, Call::Close,
    Call::Link, Call::Rename, Call::MakeFolder, Call::List, Call::Look,     Call::Space};

enum class Effect
{
    Fail,       ///< this one call fails
    FailOnward, ///< it fails and so do all later ones of its kind: the disk is full or gone
    Short,      ///< a write takes half of the bytes, and later ones fail: the disk fills up
    Kill,       ///< the process ends before the call
};

struct Fault
{
    std::vector<Call> calls; ///< the kinds that count
    int number = 1;          ///< the first of them is 1
    Effect effect = Effect::Fail;
    int error = 0; ///< errno of the failing call
};

/// Watches calls on files below folder (an absolute path) from now on.
void arm(const QByteArray& folder, const Fault& fault);
/// Stops watching. @return whether the fault struck.
bool disarm();

} // namespace FaultInjection
