// Status words of orders, as they stand in a row. The Korean ones are written as they read; the compiler
// turns them into code page 949, two bytes a syllable, and refuses a syllable that it has no bytes for.
#ifndef TICKMUX_MODULE_DECODERS_ORDERS_ORDERWORDS_H
#define TICKMUX_MODULE_DECODERS_ORDERS_ORDERWORDS_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <string_view>

namespace code_page_949 {

struct Syllable {
    char32_t Unicode;
    unsigned char Bytes[2];
};

inline constexpr Syllable kSyllables[] = {
    {U'거', {0xB0, 0xC5}}, {U'결', {0xB0, 0xE1}}, {U'료', {0xB7, 0xE1}}, {U'부', {0xBA, 0xCE}},
    {U'서', {0xBC, 0xAD}}, {U'소', {0xBC, 0xD2}}, {U'송', {0xBC, 0xDB}}, {U'수', {0xBC, 0xF6}},
    {U'신', {0xBD, 0xC5}}, {U'에', {0xBF, 0xA1}}, {U'완', {0xBF, 0xCF}}, {U'인', {0xC0, 0xCE}},
    {U'전', {0xC0, 0xFC}}, {U'접', {0xC1, 0xA2}}, {U'정', {0xC1, 0xA4}}, {U'중', {0xC1, 0xDF}},
    {U'체', {0xC3, 0xBC}}, {U'취', {0xC3, 0xEB}}, {U'확', {0xC8, 0xAE}},
};

// The code page has its syllables in the order of their code points: a wrong byte falls out of the row.
consteval bool IsInOrder() {
    for (std::size_t i = 1; i < std::size(kSyllables); ++i) {
        const Syllable& a = kSyllables[i - 1];
        const Syllable& b = kSyllables[i];
        if (a.Unicode >= b.Unicode || a.Bytes[0] * 256 + a.Bytes[1] >= b.Bytes[0] * 256 + b.Bytes[1]) {
            return false;
        }
    }
    return true;
}
static_assert(IsInOrder());

}  // namespace code_page_949

// A text of code page 949 bytes, known when it is compiled.
class Word {
public:
    template <std::size_t N>
    consteval Word(const char32_t (&text)[N]) {  // NOLINT(google-explicit-constructor): its text
        for (const char32_t letter : std::basic_string_view<char32_t>(text, N - 1)) {
            constexpr char32_t kLastAscii = 0x7F;
            if (letter <= kLastAscii) {
                m_Text[m_nSize++] = static_cast<char>(letter);
                continue;
            }
            const code_page_949::Syllable* syllable = code_page_949::kSyllables;
            while (syllable->Unicode != letter) {
                ++syllable;  // beyond the table the compiler stops here
            }
            m_Text[m_nSize++] = static_cast<char>(syllable->Bytes[0]);
            m_Text[m_nSize++] = static_cast<char>(syllable->Bytes[1]);
        }
    }

    static constexpr std::size_t kRoom = 20;

    constexpr std::string_view Text() const { return {m_Text, m_nSize}; }
    constexpr std::size_t Size() const { return m_nSize; }

private:
    char m_Text[kRoom] = {};
    std::size_t m_nSize = 0;
};

// Replaces all of a status.
template <std::size_t N>
void PutWord(char (&status)[N], const Word& word) {
    static_assert(N >= Word::kRoom);
    std::memset(status, ' ', N);
    std::memcpy(status, word.Text().data(), word.Size());
}

// True if the word stands in the status from `offset` on.
template <std::size_t N>
bool HasWord(const char (&status)[N], const Word& word, std::size_t offset = 0) {
    return std::string_view(status, N).substr(offset, word.Size()) == word.Text();
}

// True if the status is the word and nothing more.
template <std::size_t N>
bool IsWord(const char (&status)[N], const Word& word) {
    return HasWord(status, word) &&
           std::string_view(status, N).find_first_not_of(' ', word.Size()) == std::string_view::npos;
}

template <std::size_t N>
bool IsOneOf(const char (&status)[N], std::initializer_list<Word> words) {
    return std::any_of(words.begin(), words.end(),
                       [&status](const Word& word) { return IsWord(status, word); });
}

inline constexpr Word kBlankWord = U"";
inline constexpr Word kOpen = U"Open";        // accepted, nothing filled yet
inline constexpr Word kPartial = U"Partial";  // partly filled
inline constexpr Word kDone = U"Done";        // fully filled
inline constexpr Word kAmended = U"Amended";  // amended away
inline constexpr Word kWithdrawn = U"Withdrawn";
inline constexpr Word kReject = U"Reject";
inline constexpr Word kSending = U"Sending";
inline constexpr Word kAmending = U"Amending";
inline constexpr Word kWithdrawing = U"Withdrawing";

inline constexpr Word kAccepted = U"접수완료";
inline constexpr Word kAcceptanceRefused = U"접수거부";
inline constexpr Word kAmendUnconfirmed = U"정확인전";
inline constexpr Word kCancelUnconfirmed = U"취확인전";
inline constexpr Word kAmendConfirmed = U"정정확인";
inline constexpr Word kCancelConfirmed = U"취소확인";
inline constexpr Word kBeingFilled = U"체결중";
inline constexpr Word kFillingComplete = U"체결완료";
inline constexpr Word kBeingSent = U"송신중";

#endif
