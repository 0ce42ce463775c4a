#pragma once

// SQLite's layer of files with faults: the nth call of a kind fails, and what waits for a lock doesn't sleep.

#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <sqlite3.h>

namespace halyard {

class FaultVfs : private sqlite3_vfs {
  public:
    enum class Call { Open, Write, Sync, Lock };

    FaultVfs() : sqlite3_vfs(*sqlite3_vfs_find(nullptr)), real(sqlite3_vfs_find(nullptr)) {
        zName = Name;
        szOsFile = static_cast<int>(sizeof(File)) + real->szOsFile;
        xOpen = [](sqlite3_vfs* self, const char* name, sqlite3_file* file, int flags, int* out) {
            return static_cast<FaultVfs*>(self)->OpenFile(name, file, flags, out);
        };
        xSleep = [](sqlite3_vfs*, int microseconds) { return microseconds; };
        EXPECT_EQ(sqlite3_vfs_register(this, 0), SQLITE_OK);
    }
    ~FaultVfs() { sqlite3_vfs_unregister(this); }
    FaultVfs(const FaultVfs&) = delete;
    FaultVfs& operator=(const FaultVfs&) = delete;

    static constexpr const char* Name = "halyard-faults";
    /// From now on: the nth call of that kind fails, and where it `stays`, so do those after it.
    void Arm(Call call, int nth, bool stays) { armed = call, left = nth, staying = stays; }
    /// Nothing fails any more. True when something had.
    bool Heal() { return left.exchange(Healed) <= 0; }
    std::function<void()> onSync; ///< in the place of every sync
    bool sharesMemory = true;     ///< which a write-ahead log needs

  private:
    struct File : sqlite3_file {
        FaultVfs* owner;
        sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
    };

    bool Fails(Call call) {
        if (call != armed || left == Healed) return false;
        const int now = --left;
        return now == 0 || (now < 0 && staying);
    }
    int OpenFile(const char* name, sqlite3_file* file, int flags, int* out);
    template <auto Method, typename... Rest>
    static int Forward(sqlite3_file* file, Rest... rest) {
        auto* inner = static_cast<File*>(file)->Real();
        return (inner->pMethods->*Method)(inner, rest...);
    }
    template <auto Method, Call call, int Code, typename... Rest>
    static int Faulty(sqlite3_file* file, Rest... rest) {
        if (static_cast<File*>(file)->owner->Fails(call)) return Code;
        return Forward<Method>(file, rest...);
    }
    static const sqlite3_io_methods& Methods();

    static constexpr int Healed = 1 << 30;
    sqlite3_vfs* real;
    std::atomic<Call> armed = Call::Open;
    std::atomic<int> left = Healed;
    std::atomic<bool> staying = false;
};

inline const sqlite3_io_methods& FaultVfs::Methods() {
    using Io = sqlite3_io_methods;
    static const Io methods{
        2,
        Forward<&Io::xClose>,
        Forward<&Io::xRead>,
        Faulty<&Io::xWrite, Call::Write, SQLITE_FULL>,
        Forward<&Io::xTruncate>,
        // Nothing is brought to the disk: a power cut is not what this tries.
        [](sqlite3_file* file, int) {
            auto& owner = *static_cast<File*>(file)->owner;
            if (owner.onSync) owner.onSync();
            return owner.Fails(Call::Sync) ? SQLITE_IOERR_FSYNC : SQLITE_OK;
        },
        Forward<&Io::xFileSize>,
        Faulty<&Io::xLock, Call::Lock, SQLITE_BUSY>,
        Forward<&Io::xUnlock>,
        Forward<&Io::xCheckReservedLock>,
        Forward<&Io::xFileControl>,
        Forward<&Io::xSectorSize>,
        Forward<&Io::xDeviceCharacteristics>,
        Forward<&Io::xShmMap>,
        [](sqlite3_file* file, int offset, int count, int flags) {
            if ((flags & SQLITE_SHM_LOCK) != 0 && static_cast<File*>(file)->owner->Fails(Call::Lock))
                return SQLITE_BUSY;
            return Forward<&Io::xShmLock>(file, offset, count, flags);
        },
        [](sqlite3_file* file) {
            auto* inner = static_cast<File*>(file)->Real();
            inner->pMethods->xShmBarrier(inner);
        },
        Forward<&Io::xShmUnmap>,
        nullptr,
        nullptr,
    };
    return methods;
}

inline int FaultVfs::OpenFile(const char* name, sqlite3_file* file, int flags, int* out) {
    auto* own = static_cast<File*>(file);
    own->pMethods = nullptr;
    own->owner = this;
    if (Fails(Call::Open)) return SQLITE_CANTOPEN;
    const int code = real->xOpen(real, name, own->Real(), flags, out);
    static const auto poor = [] {
        auto methods = Methods();
        methods.iVersion = 1;
        return methods;
    }();
    if (code == SQLITE_OK) own->pMethods = sharesMemory ? &Methods() : &poor;
    return code;
}

} // namespace halyard
