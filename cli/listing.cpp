// The commands that list facts and figures of many files.
#include "base/number_text.h"
#include "base/utf8.h"
#include "cli/commands.h"
#include "cli/concat.h"
#include "cli/json.h"
#include "cli/report.h"

namespace pixora::cli {
namespace {

std::string_view KindText(ImageFileKind kind) {
    switch (kind) {
        case ImageFileKind::bmp:
            return "BMP";
        case ImageFileKind::tiff_little:
            return "TIFF II";
        case ImageFileKind::tiff_big:
            return "TIFF MM";
        case ImageFileKind::none:
        case ImageFileKind::bin:
        case ImageFileKind::unknown:
            break;
    }
    return "";
}

std::vector<Field> FactsOf(const ImageBuffer& image, const std::string& file) {
    return {
        TextField("file", file),
        TextField("kind", KindText(image.file_kind)),
        NumberField("width", image.width),
        NumberField("height", image.height),
        TruthField("colour", image.colour != 0),
        NumberField("bits_per_sample", image.bits_per_sample),
        NumberField("stored_bits", image.stored_bits),
        NumberField("valid_bits", image.valid_bits),
        NumberField("bmp_bit_count", image.bmp_bit_count),
        TruthField("raw_data", image.raw_data != 0),
        TextField("pixel_format", Utf8FromWide(image.pixel_format)),
    };
}

// The facts one under the other, below the name of the file.
std::string Paragraph(const std::vector<Field>& facts) {
    constexpr std::size_t kNameWidth = 16;
    std::string text = facts.front().value + "\n";
    for (std::size_t i = 1; i < facts.size(); ++i) {
        std::string name(facts[i].name);
        name.resize(kNameWidth, ' ');
        text += Concat({"  ", name, " ", facts[i].value, "\n"});
    }
    return text;
}

struct Channel {
    std::string_view name;
    const SampleStatistics& statistics;
};

std::vector<Channel> ChannelsOf(const StatisticsRecord& record, bool colour) {
    if (!colour) return {{"mono", record[StatisticsSlot(kGrey)]}};
    return {{"R", record[StatisticsSlot(kRed)]},
            {"G", record[StatisticsSlot(kGreen)]},
            {"B", record[StatisticsSlot(kBlue)]},
            {"RGB", record[StatisticsSlot(kAllChannels)]}};
}

std::vector<Field> FiguresOf(const SampleStatistics& statistics) {
    return {NumberField("min", statistics.min),
            NumberField("max", statistics.max),
            {"mean", ShortestText(statistics.mean)},
            {"std", ShortestText(statistics.std)}};
}

std::vector<Field> LineOf(const std::string& file, const Channel& channel) {
    std::vector<Field> fields = FiguresOf(channel.statistics);
    fields.insert(fields.begin(), {TextField("file", file), TextField("channel", channel.name)});
    return fields;
}

std::string StatsJson(const std::string& file, const Region& region, const std::vector<Channel>& measured) {
    JsonWriter json;
    json.BeginObject();
    json.Add(TextField("file", file));
    json.Name("region");
    json.BeginArray();
    for (const int edge : {region.left, region.top, region.right, region.bottom}) json.Number(edge);
    json.EndArray();
    json.Name("channels");
    json.BeginArray();
    for (const Channel& channel : measured) {
        json.BeginObject();
        json.Add(TextField("name", channel.name));
        json.AddAll(FiguresOf(channel.statistics));
        json.EndObject();
    }
    json.EndArray();
    json.EndObject();
    return json.Result() + "\n";
}

std::string StatsText(const std::string& file, const Region& region, const std::vector<Channel>& measured) {
    std::string text = Concat({file, " (", RegionText(region), ")\n"});
    for (const Channel& channel : measured) {
        const SampleStatistics& figures = channel.statistics;
        std::string name(channel.name);
        name.resize(4, ' ');
        text += Concat({"  ", name, "  min ", std::to_string(figures.min), "  max ",
                        std::to_string(figures.max), "  mean ", Utf8FromWide(FormatFixed(figures.mean, 3)),
                        "  std ", Utf8FromWide(FormatFixed(figures.std, 3)), "\n"});
    }
    return text;
}

}  // namespace

void BeginListing(Session& session) {
    if (session.options.format != Format::csv) return;
    const bool facts = session.options.command == Command::info;
    session.console.Out(CsvHeader(facts ? FactsOf({}, {}) : LineOf({}, {{}, SampleStatistics{}})));
}

int Info(Session& session, const std::string& file) {
    int status = kDone;
    const std::optional<ImageBuffer> image = session.Read(file, nullptr, status);
    if (!image) return status;
    const std::vector<Field> facts = FactsOf(*image, file);
    switch (session.options.format) {
        case Format::json:
            session.console.Out(JsonObject(facts) + "\n");
            break;
        case Format::csv:
            session.console.Out(CsvLine(facts));
            break;
        case Format::text:
            session.console.Out(Paragraph(facts));
            break;
    }
    return kDone;
}

int Stats(Session& session, const std::string& file) {
    session.sums.Expect(session.options.region);
    int status = kDone;
    const std::optional<ImageBuffer> image = session.Read(file, &session.sums, status);
    if (!image) return status;
    const StatisticsRecord record = session.sums.Statistics(image->colour != 0);
    const std::vector<Channel> measured = ChannelsOf(record, image->colour != 0);
    switch (session.options.format) {
        case Format::json:
            session.console.Out(StatsJson(file, session.sums.Part(), measured));
            break;
        case Format::csv:
            for (const Channel& channel : measured) session.console.Out(CsvLine(LineOf(file, channel)));
            break;
        case Format::text:
            session.console.Out(StatsText(file, session.sums.Part(), measured));
            break;
    }
    return kDone;
}

}  // namespace pixora::cli
