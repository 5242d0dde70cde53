#pragma once
// A replay as one web page: the viewer's page (built in build-web/, installed with the package)
// with the replay's bytes inside, opening at a moment of it. trelvin-export --html and the
// window's "Exportovat jako webovou stranku..." write it; the page reads it back as it reads
// the copies it saves of itself.
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>

#include "view/view_mode.h"

#ifndef TRELVIN_WEB_PAGE
#define TRELVIN_WEB_PAGE "/usr/share/trelvin-replay/web/trelvin-replay.html"
#endif

namespace trelvin {

// The page a program of the build tree uses is the build's own; an installed program's, the
// installed one.
inline std::filesystem::path WebPageFile() {
#if defined(TRELVIN_BUILD_TREE) && defined(TRELVIN_BUILT_WEB_PAGE)
    std::error_code error;
    const std::filesystem::path program = std::filesystem::canonical("/proc/self/exe", error);
    const std::filesystem::path tree = std::filesystem::weakly_canonical(TRELVIN_BUILD_TREE, error);
    if (!program.empty() && program.string().starts_with(tree.string() + "/")) return TRELVIN_BUILT_WEB_PAGE;
#endif
    return TRELVIN_WEB_PAGE;
}

// "#a=5&v=les&z=20&h=1": where the page opens; an action of 0 leaves the page where a replay
// opens, a field size of 0 at the page's own.
inline std::string WebPageMoment(int action, ViewMode view, int fieldPixels = 0, int highlight = -1) {
    const std::string_view side = ViewSide(view);
    std::string moment = "#";
    if (action > 0) moment += "a=" + std::to_string(action) + "&";
    moment += "v=" + std::string(side.empty() ? "all" : side);
    if (fieldPixels > 0) moment += "&z=" + std::to_string(fieldPixels);
    if (highlight >= 0) moment += "&h=" + std::to_string(highlight);
    return moment;
}

namespace web_page_detail {

inline std::string Base64(std::string_view bytes) {
    static constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string out;
    out.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t left = bytes.size() - i;
        const unsigned group = (static_cast<unsigned char>(bytes[i]) << 16) |
                               (left > 1 ? static_cast<unsigned char>(bytes[i + 1]) << 8 : 0) |
                               (left > 2 ? static_cast<unsigned char>(bytes[i + 2]) : 0);
        out += kDigits[(group >> 18) & 63];
        out += kDigits[(group >> 12) & 63];
        out += left > 1 ? kDigits[(group >> 6) & 63] : '=';
        out += left > 2 ? kDigits[group & 63] : '=';
    }
    return out;
}

// Text for a quoted attribute.
inline std::string Attribute(std::string_view text) {
    std::string out;
    for (const char c : text) {
        switch (c) {
            case '&': out += "&amp;"; break;
            case '"': out += "&quot;"; break;
            case '<': out += "&lt;"; break;
            case '>': out += "&gt;"; break;
            default: out += c;
        }
    }
    return out;
}

}  // namespace web_page_detail

// Writes `output`: the page with `replay` (the file's bytes, named `name` in UTF-8) inside,
// opening at `moment`. Returns what went wrong (Czech, UTF-8), empty when the file is written;
// a failure leaves no file, and a file of that name as it was.
inline std::string WriteReplayPage(const std::filesystem::path& output, std::string_view replay, std::string_view name,
                                   std::string_view moment) {
    const std::filesystem::path pageFile = WebPageFile();
    std::ifstream in(pageFile, std::ios::binary);
    if (!in) return "webova stranka prohlizece neni nainstalovana (chybi " + pageFile.string() + ")";
    const std::string page{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    const std::size_t script = page.find("<script type=\"module\">");
    if (!in.good() && !in.eof()) return "webovou stranku " + pageFile.string() + " nelze precist";
    if (script == std::string::npos) return "soubor " + pageFile.string() + " neni webova stranka prohlizece";
    const std::string carrier = "<script type=\"application/x-trelvin-replay\" id=\"embedded-replay\" data-name=\"" +
                                web_page_detail::Attribute(name) + "\" data-moment=\"" +
                                web_page_detail::Attribute(moment) + "\">" + web_page_detail::Base64(replay) +
                                "</script>\n";
    // Written beside the output and renamed over it once complete.
    std::filesystem::path part = output;
    part += ".part";
    {
        std::ofstream out(part, std::ios::binary | std::ios::trunc);
        out.write(page.data(), static_cast<std::streamsize>(script));
        out << carrier;
        out.write(page.data() + script, static_cast<std::streamsize>(page.size() - script));
        out.close();
        if (!out) {
            std::error_code ignored;
            std::filesystem::remove(part, ignored);
            return "soubor " + output.string() + " nelze zapsat";
        }
    }
    std::error_code error;
    std::filesystem::rename(part, output, error);
    if (error) {
        std::filesystem::remove(part, error);
        return "soubor " + output.string() + " nelze zapsat";
    }
    return {};
}

}  // namespace trelvin
