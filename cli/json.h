// JSON texts: a thin cover over RapidJSON's writer.
#pragma once

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <string>
#include <string_view>

#include "cli/report.h"

namespace pixora::cli {

/// Puts one JSON object together, without blanks and line ends.
class JsonWriter {
public:
    void BeginObject() { writer_.StartObject(); }
    void EndObject() { writer_.EndObject(); }
    void BeginArray() { writer_.StartArray(); }
    void EndArray() { writer_.EndArray(); }
    void Name(std::string_view name) { writer_.Key(name.data(), Size(name)); }
    void Number(int value) { writer_.Int(value); }
    /// Bytes that are no UTF-8 become U+FFFD.
    void Text(std::string_view text);
    /// A named value in an object. Numbers stand as their field has them.
    void Add(const Field& field);
    void AddAll(const std::vector<Field>& fields) {
        for (const Field& field : fields) Add(field);
    }
    [[nodiscard]] std::string Result() const { return {buffer_.GetString(), buffer_.GetSize()}; }

private:
    static rapidjson::SizeType Size(std::string_view text) {
        return static_cast<rapidjson::SizeType>(text.size());
    }

    rapidjson::StringBuffer buffer_;
    rapidjson::Writer<rapidjson::StringBuffer> writer_{buffer_};
};

}  // namespace pixora::cli
