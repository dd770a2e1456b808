// Subscription requests: how a decoder asks the terminal's communication manager for packets of a code.
//
// Nothing is counted here: two decoders that want one code send two requests, and the communication manager
// does the counting.
#ifndef TICKMUX_MODULE_FRAMEWORK_SUBSCRIPTION_H
#define TICKMUX_MODULE_FRAMEWORK_SUBSCRIPTION_H

#include <cstdint>
#include <utility>

#include "module/framework/packet_decoder.h"
#include "module/wire/shapes.h"
#include "module/wire/subscription_record.h"

// Ask for a code, or no longer. A code of spaces sends nothing. Gives 1 if a request went out.
int AddTrStcd(const char* code, int codeLen, char chClass, uint32_t flags);
int DelTrStcd(const char* code, int codeLen, char chClass, uint32_t flags);

// The requests for codes of one class, with one set of packet types.
template <class Key, char Class, uint32_t Flags>
struct Subscription {
    static void Add(const Key& key) { AddTrStcd(Bytes(key), sizeof(Key), Class, Flags); }
    static void Delete(const Key& key) { DelTrStcd(Bytes(key), sizeof(Key), Class, Flags); }

    // The new code is asked for before the former one is given up, so that one that stays is never off.
    static void Move(const Key& former, const Key& next) {
        Add(next);
        Delete(former);
    }

private:
    static const char* Bytes(const Key& key) { return reinterpret_cast<const char*>(&key); }
};

// The one code that a decoder follows. Blank: none.
template <class Key, char Class, uint32_t Flags>
class FollowedCode {
public:
    // The decoder that follows it.
    explicit FollowedCode(CRTMPacketDecoder& decoder) : m_Decoder(decoder) { Take(Blank()); }

    const Key& Get() const { return m_Key; }

    void MoveTo(const Key& next) { MoveFrom(Take(next)); }

    // The same in two steps: the key first, and the requests when the rest is ready. Take gives the former
    // key.
    Key Take(const Key& next) {
        m_Decoder.Follow(next);
        return std::exchange(m_Key, next);
    }
    void MoveFrom(const Key& former) { Subscription<Key, Class, Flags>::Move(former, m_Key); }

    // Blank before the request goes out: whoever hears of it may call back and bring another key.
    void GiveUp() { Subscription<Key, Class, Flags>::Delete(Take(Blank())); }
    // Blank, and the code stays asked for.
    void Forget() { Take(Blank()); }

private:
    static Key Blank() {
        Key key;
        FillBlank(key);
        return key;
    }

    Key m_Key;
    CRTMPacketDecoder& m_Decoder;
};

#endif
