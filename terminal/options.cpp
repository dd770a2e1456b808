#include "terminal/options.h"

#include <charconv>
#include <filesystem>
#include <system_error>

#include "terminal/errors.h"
#include "terminal/text.h"

namespace tools {

namespace {

class Help : public CLI::Formatter {
public:
    explicit Help(std::string usage) : m_Usage(std::move(usage)) {}

    std::string make_usage(const CLI::App* /*app*/, std::string name) const override {
        return "Usage: " + name + " [options] " + m_Usage + "\n";
    }

private:
    std::string m_Usage;
};

[[noreturn]] void Refuse(const std::string& name, const std::string& text, const std::string& range) {
    throw BadInput(name + " " + Quoted(text) + " is no number " + range);
}

}  // namespace

void SetUpOptions(CLI::App& app, const std::string& usage, const std::string& purpose,
                  const std::string& notes) {
    app.formatter(std::make_shared<Help>(usage));
    app.description(purpose);
    app.footer(notes + "Exit status: 0 done, 1 failed, 2 bad input.");
    app.get_formatter()->column_width(23);
    app.allow_extras();
}

void AddOption(CLI::App& app, const std::string& name, const std::string& value, const std::string& help,
               const std::function<void(const std::string&)>& take) {
    app.add_option_function<std::string>(name, take, help)
        ->option_text(value)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

void AddFolder(CLI::App& app, const std::string& name, const std::string& help, std::string& folder) {
    AddOption(app, name, "DIR", help, [&folder, name](const std::string& text) {
        std::error_code error;
        if (!std::filesystem::is_directory(text, error)) {
            throw BadInput(name + " " + Quoted(text) + " is no folder; make it first");
        }
        folder = text;
    });
}

bool ReadOptions(CLI::App& app, int argc, char** argv) {
    // Behind all others in the help.
    app.set_help_flag("--help", "print this");
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        Print(app.help());
        return false;
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string name = error.what();
        throw BadInput("option " + name.substr(0, name.find(':')) + " needs a value; see --help");
    } catch (const CLI::ParseError& error) {
        throw BadInput(Printable(error.what()) + "; see --help");
    }
    for (const std::string& word : app.remaining()) {
        // What parts options from files is counted as left over too.
        if (word != "--") {
            throw BadInput((word.size() > 1 && word[0] == '-' ? "option " : "argument ") + Quoted(word) +
                           " is not known here; see --help");
        }
    }
    return true;
}

int64_t NumberOption(const std::string& name, const std::string& text, int64_t lowest, int64_t highest) {
    const std::optional<int64_t> number = ParseInteger(text);
    if (!number || *number < lowest || *number > highest) {
        Refuse(name, text, "from " + std::to_string(lowest) + " to " + std::to_string(highest));
    }
    return *number;
}

double DecimalOption(const std::string& name, const std::string& text, double lowest, double highest) {
    double number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    // Turned round, so that what is not a number falls out too.
    if (error != std::errc() || stop != end || !(number >= lowest && number <= highest)) {
        char range[64];
        std::snprintf(range, sizeof(range), "from %g to %g", lowest, highest);
        Refuse(name, text, range);
    }
    return number;
}

}  // namespace tools
