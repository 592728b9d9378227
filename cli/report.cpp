#include "cli/report.h"

#include <array>
#include <charconv>

#include "cli/json.h"

namespace pixora::cli {
namespace {

std::string Joined(const std::vector<Field>& fields, bool names) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (i > 0) line += ',';
        line += CsvField(names ? fields[i].name : fields[i].value);
    }
    return line + '\n';
}

}  // namespace

std::string ShortestText(double value) {
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return error == std::errc{} ? std::string(digits.data(), end) : std::string("null");
}

std::string CsvField(std::string_view text) {
    if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
    return quoted + '"';
}

std::string JsonObject(const std::vector<Field>& fields) {
    JsonWriter json;
    json.BeginObject();
    json.AddAll(fields);
    json.EndObject();
    return json.Result();
}

std::string CsvHeader(const std::vector<Field>& fields) {
    return Joined(fields, true);
}

std::string CsvLine(const std::vector<Field>& fields) {
    return Joined(fields, false);
}

}  // namespace pixora::cli
