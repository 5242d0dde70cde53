#include "export/export_command_line.h"

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <map>

#include "display/licence_text.h"

namespace trelvin {

namespace {

constexpr const char* kUsage =
    "usage: trelvin-export FILE --at N [--to M] [--view all|les|louka] [--field PX]\n"
    "                      [--labels] [--caption] [--highlight] [--delay MS] -o OUT\n"
    "       trelvin-export FILE --html [--at N] [--view all|les|louka] -o OUT\n";

constexpr const char* kHelp =
    "Exports the map of a Trelvin replay as the viewer shows it: the picture of action N as a\n"
    "PNG, or actions N to M as an animated GIF or WebP, one frame per action. The format\n"
    "follows the extension of OUT (.png, .gif, .webp). Needs no display.\n\n"
    "  --at N               the action of the picture, or the first of the animation\n"
    "  --to M               the last action of the animation (.gif or .webp)\n"
    "  --view all|les|louka the way of viewing (all)\n"
    "  --field PX           pixels a field, 2 to 80 (20)\n"
    "  --labels             the column letters and row numbers\n"
    "  --caption            a strip under the map: the action, its date and time, its description\n"
    "  --highlight          the action's fields outlined, an arrow from field to field and a\n"
    "                       cross on a captured headquarters, as far as the view can see them\n"
    "  --delay MS           milliseconds a frame, 20 to 60000 (200)\n"
    "  --html               the viewer's web page with the replay inside, one file that opens\n"
    "                       offline in any browser at action N (as opened without --at) in\n"
    "                       the way of viewing; the page installed with the viewer\n"
    "  -o, --output OUT     the file to write\n"
    "  -h, --help           print this help\n"
    "  -v, --version        print the version\n\n"
    "Exit status: 0 written; 1 the replay does not load, an action outside the replay, or the\n"
    "file cannot be written (no file is left); 2 a wrong argument.\n";

// Larger than any replay's count, yet a number: such an action lies outside the replay.
constexpr int kLargestAction = 999999999;

// A whole number of decimal digits alone; anything else is no number.
std::optional<int> wholeNumber(const std::string& text) {
    if (text.empty() || text.size() > 9 || !std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }))
        return std::nullopt;
    return std::atoi(text.c_str());
}

ReadArguments wrong(const std::string& problem) {
    return {std::nullopt, 2, {}, "trelvin-export: " + problem + "\n" + kUsage};
}

// A number option's value within its bounds; an empty text names the problem.
std::string readNumber(const std::string& option, const std::string& value, int smallest, int largest, int& into) {
    const std::optional<int> number = wholeNumber(value);
    if (!number || *number < smallest || *number > largest)
        return option + " needs a whole number from " + std::to_string(smallest) + " to " + std::to_string(largest) +
               ", not '" + value + "'";
    into = *number;
    return {};
}

}  // namespace

ReadArguments ReadExportArguments(const std::vector<std::string>& arguments) {
    for (std::size_t i = 1; i < arguments.size() && arguments[i] != "--"; ++i) {
        if (arguments[i] == "-h" || arguments[i] == "--help") return {std::nullopt, 0, std::string(kUsage) + "\n" + kHelp, {}};
        if (arguments[i] == "-v" || arguments[i] == "--version")
            return {std::nullopt, 0, VersionText("trelvin-export", TRELVIN_VERSION), {}};
    }
    ExportArguments result;
    int at = 0, to = 0;
    bool hasAt = false, hasTo = false, hasPictureOption = false;
    // The options that take a value: each reads it into the result, or names what is wrong.
    const std::map<std::string, std::function<std::string(const std::string&, const std::string&)>> valued{
        {"--at", [&](const std::string& o, const std::string& v) { hasAt = true; return readNumber(o, v, 0, kLargestAction, at); }},
        {"--to", [&](const std::string& o, const std::string& v) { hasTo = true; return readNumber(o, v, 0, kLargestAction, to); }},
        {"--field", [&](const std::string& o, const std::string& v) {
             hasPictureOption = true;
             return readNumber(o, v, kSmallestExportField, kLargestExportField, result.picture.fieldPixels); }},
        {"--delay", [&](const std::string& o, const std::string& v) {
             hasPictureOption = true;
             return readNumber(o, v, kShortestDelay, kLongestDelay, result.delayMilliseconds); }},
        {"--view", [&](const std::string&, const std::string& v) {
             const std::optional<ViewMode> mode = ViewModeNamed(v);
             if (mode) result.picture.view = *mode;
             return mode ? std::string() : "--view needs all, les or louka, not '" + v + "'"; }},
        {"--output", [&](const std::string&, const std::string& v) { result.output = v; return std::string(); }},
    };
    const std::map<std::string, bool PictureOptions::*> flags{{"--labels", &PictureOptions::labels},
                                                              {"--caption", &PictureOptions::caption},
                                                              {"--highlight", &PictureOptions::highlight}};
    bool optionsEnded = false;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        std::string argument = arguments[i];
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
            continue;
        }
        if (optionsEnded || argument.empty() || argument[0] != '-') {
            if (!result.replay.empty()) return wrong("only one replay can be exported, not also '" + argument + "'");
            result.replay = argument;
            continue;
        }
        if (argument == "-o") argument = "--output";
        std::optional<std::string> value;
        if (const std::size_t equals = argument.find('='); equals != std::string::npos) {
            value = argument.substr(equals + 1);
            argument.resize(equals);
        }
        if (const auto flag = flags.find(argument); flag != flags.end() && !value) {
            result.picture.*(flag->second) = true;
            hasPictureOption = true;
            continue;
        }
        if (argument == "--html" && !value) {
            result.html = true;
            continue;
        }
        const auto option = valued.find(argument);
        if (option == valued.end()) return wrong("unknown option '" + arguments[i] + "'");
        if (!value) {
            if (i + 1 == arguments.size()) return wrong(argument + " needs a value");
            value = arguments[++i];
        }
        if (const std::string problem = option->second(argument, *value); !problem.empty()) return wrong(problem);
    }
    if (result.replay.empty()) return wrong("no replay given");
    if (result.html) {
        if (hasTo || hasPictureOption) return wrong("--html takes only --at and --view");
        if (result.output.empty()) return wrong("-o OUT is missing");
        result.first = hasAt ? at : -1;
        return {result, 0, {}, {}};
    }
    if (!hasAt) return wrong("--at N is missing");
    if (result.output.empty()) return wrong("-o OUT is missing");
    const std::optional<ExportFormat> format = FormatOfPath(QString::fromStdString(result.output));
    if (!format) return wrong("OUT must end in .png, .gif or .webp: '" + result.output + "'");
    if (hasTo && *format == ExportFormat::Png) return wrong("--to needs an OUT ending in .gif or .webp");
    if (hasTo && to < at) return wrong("--to must not come before --at");
    result.first = at;
    if (hasTo) result.last = to;
    return {result, 0, {}, {}};
}

}  // namespace trelvin
