#include "cli/report.h"

#include <array>
#include <charconv>

#include "base/utf8.h"
#include "cli/concat.h"

namespace pixora::cli {
namespace {

std::string Escaped(char c) {
    switch (c) {
        case '"':
            return "\\\"";
        case '\\':
            return "\\\\";
        case '\n':
            return "\\n";
        case '\r':
            return "\\r";
        case '\t':
            return "\\t";
        default:
            break;
    }
    const std::size_t code = static_cast<unsigned char>(c);
    if (code >= 0x20) return {c};
    constexpr std::string_view kDigits = "0123456789abcdef";
    return Concat({"\\u00", kDigits.substr(code / 16, 1), kDigits.substr(code % 16, 1)});
}

std::string Joined(const std::vector<Field>& fields, bool names) {
    std::string line;
    for (const Field& field : fields) {
        if (!line.empty()) line += ',';
        line += CsvField(names ? field.name : field.value);
    }
    return line + '\n';
}

}  // namespace

std::string ShortestText(double value) {
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc{} ? std::string(digits.data(), end) : std::string("null");
}

std::string JsonText(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : Utf8FromWide(WideFromUtf8(text))) quoted += Escaped(c);
    return quoted + '"';
}

std::string CsvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

std::string JsonObject(const std::vector<Field>& fields) {
    std::string object = "{";
    for (const Field& field : fields) {
        if (object.size() > 1) object += ',';
        object += Concat({JsonText(field.name), ":", field.quoted ? JsonText(field.value) : field.value});
    }
    return object + '}';
}

std::string CsvHeader(const std::vector<Field>& fields) {
    return Joined(fields, true);
}

std::string CsvLine(const std::vector<Field>& fields) {
    return Joined(fields, false);
}

}  // namespace pixora::cli
