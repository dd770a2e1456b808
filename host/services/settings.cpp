// The texts of the services and folders.
#include "host/services/settings.h"

#include <array>
#include <atomic>
#include <mutex>
#include <set>
#include <string>
#include <string_view>

#include "host/platform/guarded.h"
#include "host/platform/paths.h"
#include "host/services/exports.h"
#include "host/services/resets.h"

namespace {

enum class Form { Plain, UserID, Folder };

struct Row {
    Setting Which;
    std::string_view Name;
    const char* Default;  // in its final form
    Form Shape;
};

constexpr std::array<Row, static_cast<std::size_t>(Setting::Count)> kRows = {{
    {Setting::UserGrade, "UserGrade", "", Form::Plain},
    {Setting::MenuGrade, "MenuGrade", "", Form::Plain},
    {Setting::HashUserID, "HashUserID", "                   ", Form::UserID},
    {Setting::UserID, "UserID", "                   ", Form::UserID},
    {Setting::BaseUserID, "BaseUserID", "", Form::Plain},
    {Setting::InnerTr, "InnerTr", "", Form::Plain},
    {Setting::UserDir, "UserDir", ".", Form::Folder},
    {Setting::DataDir, "DataDir", ".", Form::Folder},
    {Setting::DriveC, "DriveC", kDefaultDriveC, Form::Folder},
}};

constexpr std::size_t kUserIDWidth = 19;

// Every text ever set is kept: readers hold bare pointers.
struct Texts {
    std::mutex Lock;
    std::set<std::string> Kept;
    std::array<std::atomic<const char*>, kRows.size()> Current{};

    Texts() { Reset(); }
    void Reset() {
        for (const Row& row : kRows) {
            Current[static_cast<std::size_t>(row.Which)] = row.Default;
        }
        SetDriveC(kDefaultDriveC);
    }
};

Texts& TheTexts() {
    static auto* const texts = new Texts;  // outlives every static object that may still ask
    return *texts;
}

std::string InForm(std::string text, Form form) {
    switch (form) {
        case Form::UserID:
            if (text.size() < kUserIDWidth) {
                text.resize(kUserIDWidth, ' ');
            }
            break;
        case Form::Folder:  // callers add a separator; the root folder becomes the empty text
            text.erase(text.find_last_not_of("/\\") + 1);
            break;
        case Form::Plain:
            break;
    }
    return text;
}

}  // namespace

const char* SettingText(Setting setting) {
    return TheTexts().Current[static_cast<std::size_t>(setting)];
}

void ResetTexts() {
    TheTexts().Reset();
}

int tickhost_set_text(const char* name, const char* value) {
    if (name == nullptr || value == nullptr) {
        return 0;
    }
    for (const Row& row : kRows) {
        if (row.Name == name) {
            return OrRefuse(0, [&] {
                Texts& texts = TheTexts();
                const std::lock_guard hold(texts.Lock);
                const std::string& kept = *texts.Kept.insert(InForm(value, row.Shape)).first;
                texts.Current[static_cast<std::size_t>(row.Which)] = kept.c_str();
                if (row.Which == Setting::DriveC) {
                    SetDriveC(kept.c_str());
                }
                return 1;
            });
        }
    }
    return 0;
}
