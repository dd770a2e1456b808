#include "tools/options.h"

#include <charconv>
#include <filesystem>
#include <system_error>

#include "tools/errors.h"
#include "tools/text.h"

namespace tools {

namespace {

[[noreturn]] void Refuse(const char* name, const std::string& text, const std::string& range) {
    throw BadInput(std::string("--") + name + " " + Quoted(text) + " is no number " + range);
}

}  // namespace

int ReadOptions(int argc, char** argv, const option* options,
                const std::function<void(int, const std::string&)>& take) {
    opterr = 0;
    for (;;) {
        const int name = getopt_long(argc, argv, ":", options, nullptr);
        if (name == -1) {
            return optind;
        }
        if (name == ':') {
            throw BadInput(std::string("option ") + argv[optind - 1] + " needs a value; see --help");
        }
        if (name == '?') {
            // A cluster of short ones is still at its own place.
            const char* word =
                argv[optopt != 0 && optind < argc && argv[optind][0] == '-' ? optind : optind - 1];
            throw BadInput("option " + Quoted(word) + " is not known here; see --help");
        }
        take(name, optarg == nullptr ? "" : optarg);
    }
}

int64_t NumberOption(const char* name, const std::string& text, int64_t lowest, int64_t highest) {
    const std::optional<int64_t> number = ParseInteger(text);
    if (!number || *number < lowest || *number > highest) {
        Refuse(name, text, "from " + std::to_string(lowest) + " to " + std::to_string(highest));
    }
    return *number;
}

double DecimalOption(const char* name, const std::string& text, double lowest, double highest) {
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

std::string FolderOption(const char* name, const std::string& text) {
    std::error_code error;
    if (!std::filesystem::is_directory(text, error)) {
        throw BadInput(std::string("--") + name + " " + Quoted(text) + " is no folder; make it first");
    }
    return text;
}

}  // namespace tools
