#include "host/platform/shared_mutex.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <utility>

namespace {

constexpr uint32_t kReady = 0x4D555458;
constexpr std::size_t kNameLimit = 260;    // of the platform
constexpr std::size_t kObjectLimit = 200;  // file names end at 255
constexpr int kRounds = 1000;

// Users do not share mutexes. The word size is in the name since the state has another layout on 32 bits.
std::string ObjectName(const std::string& name) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string object =
        "/tickhost-" + std::to_string(sizeof(void*) * 8) + "-" + std::to_string(getuid()) + "-";
    uint64_t hash = 0xCBF29CE484222325;
    for (const char letter : name) {
        const auto byte = static_cast<unsigned char>(letter);
        hash = (hash ^ byte) * 0x100000001B3;
        if ((byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z')) {
            object += letter;
        } else {
            object.append({'_', kDigits[byte / 16U], kDigits[byte % 16U]});
        }
    }
    if (object.size() > kObjectLimit) {  // the head, and a hash of the whole
        object.resize(kObjectLimit);
        object.append("~").append(std::to_string(hash));
    }
    return object;
}

bool Lock(int descriptor, int how) {
    int result = flock(descriptor, how);
    while (result != 0 && errno == EINTR) {
        result = flock(descriptor, how);
    }
    return result == 0;
}

// The object's size; -1: it is no longer under its name.
off_t LinkedSize(int descriptor) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 && status.st_nlink > 0 ? status.st_size : -1;
}

MutexState* Map(int descriptor) {
    void* const memory = mmap(nullptr, sizeof(MutexState), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
    return memory == MAP_FAILED ? nullptr : static_cast<MutexState*>(memory);
}

}  // namespace

bool MutexState::Make() {
    pthread_mutexattr_t attributes;
    if (pthread_mutexattr_init(&attributes) != 0) {
        return false;
    }
    Abandoned = 0;
    const bool made = pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED) == 0 &&
                      pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST) == 0 &&
                      pthread_mutex_init(&Mutex, &attributes) == 0;
    pthread_mutexattr_destroy(&attributes);
    Ready = made ? kReady : 0;
    return made;
}

SharedMutex::SharedMutex(std::string object, int flags)
    : m_Object(std::move(object)), m_Descriptor(shm_open(m_Object.c_str(), O_RDWR | flags, 0600)) {}

SharedMutex::~SharedMutex() {
    Withdraw();
    if (m_pState != nullptr) {
        munmap(m_pState, sizeof(MutexState));
    }
}

// A round that succeeds ends with the shared lock on an object that is still under its name and made. Else
// another process was just on its way in or out, or died there, and a new round finds what it left.
std::unique_ptr<SharedMutex> SharedMutex::Open(const std::string& name, bool create, bool& created) {
    if (name.size() > kNameLimit) {
        return nullptr;
    }
    for (int round = 0; round < kRounds; ++round) {
        std::unique_ptr<SharedMutex> part(new SharedMutex(ObjectName(name), create ? O_CREAT : 0));
        if (part->m_Descriptor < 0) {
            return nullptr;
        }
        created = false;
        if (Lock(part->m_Descriptor, LOCK_EX | LOCK_NB)) {
            if (!create) {
                return nullptr;  // left by a process that died
            }
            created = part->Make();
        }
        // From exclusive to shared is not one step: another process may come between and make the object
        // anew, or take it away. This one has not used it yet.
        if (Lock(part->m_Descriptor, LOCK_SH) && part->Attach()) {
            return part;
        }
    }
    return nullptr;
}

bool SharedMutex::Make() {
    if (ftruncate(m_Descriptor, 0) != 0 || ftruncate(m_Descriptor, sizeof(MutexState)) != 0) {
        return false;
    }
    m_pState = Map(m_Descriptor);
    return m_pState != nullptr && m_pState->Make();
}

bool SharedMutex::Attach() {
    if (LinkedSize(m_Descriptor) != sizeof(MutexState)) {
        return false;
    }
    if (m_pState == nullptr) {
        m_pState = Map(m_Descriptor);
    }
    return m_pState != nullptr && m_pState->Ready == kReady;
}

void SharedMutex::Withdraw() {
    if (m_Descriptor < 0) {
        return;
    }
    if (Lock(m_Descriptor, LOCK_EX | LOCK_NB) && LinkedSize(m_Descriptor) >= 0) {
        shm_unlink(m_Object.c_str());
    }
    Lock(m_Descriptor, LOCK_UN);  // a child of fork may have this descriptor still open
    Forget();
}

void SharedMutex::Forget() {
    if (m_Descriptor >= 0) {
        close(m_Descriptor);
        m_Descriptor = -1;
    }
}
