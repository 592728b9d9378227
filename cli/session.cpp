#include "cli/session.h"

#include "base/stop.h"
#include "base/utf8.h"
#include "cli/concat.h"
#include "cli/paths.h"
#include "cli/report.h"

namespace pixora::cli {
namespace {

constexpr std::string_view kStripsTooMany =
    "warning: the strip table is too large; pixels are read from the start of the file";

std::string SizeText(const PartSink& sink) {
    return Concat({std::to_string(sink.ImageWidth()), " x ", std::to_string(sink.ImageHeight()), " pixels"});
}

std::string OutsideText(const Options& options, const PartSink& sink) {
    const std::string of = Concat({" is outside the image of ", SizeText(sink)});
    if (options.region && !IsInside(*options.region, sink.ImageWidth(), sink.ImageHeight()))
        return Concat({"the region ", RegionText(*options.region), of});
    const bool row = options.kind == ProfileKind::horizontal;
    return Concat({row ? "the row " : "the column ", std::to_string(options.line), of});
}

}  // namespace

void Session::Say(std::string_view file, std::string_view message) const {
    console.Error(Concat({file, ": ", message}));
}

int Session::Refuse(const std::string& file, const ImportResult& refused) const {
    const std::string reason = Utf8FromWide(refused.reason);
    Say(file, reason);
    const bool lists = options.command == Command::info || options.command == Command::stats;
    if (lists && options.format == Format::json)
        console.Out(JsonObject({TextField("file", file), TextField("error", reason),
                                NumberField("code", refused.code)}) +
                    "\n");
    return kFailed;
}

void Session::Warn(const std::string& file, const ImportResult& read) const {
    if (read.strips_too_many) Say(file, kStripsTooMany);
}

std::optional<ImageBuffer> Session::Read(const std::string& file, PartSink* sink, int& status) const {
    ImportResult result = ReadImage(RequestFor(file), sink);
    status = StopRequested() ? kFailed : kDone;
    if (StopRequested()) return std::nullopt;  // some of it may not have been read
    if (result.image) {
        if (sink) sink->Complete();
        Warn(file, result);
        return std::move(result.image);
    }
    switch (sink ? sink->Ended() : PartSink::End::none) {
        case PartSink::End::outside:
            Say(file, OutsideText(options, *sink));
            status = kUsage;
            break;
        case PartSink::End::no_memory:
            status = Refuse(file, RefusedForMemory(PathOf(file)));
            break;
        case PartSink::End::none:
            status = Refuse(file, result);
            break;
    }
    return std::nullopt;
}

SourceRequest Session::RequestFor(const std::string& file) const {
    return {PathOf(file), options.valid_bits, options.auto_bit};
}

std::string RegionText(const Region& region) {
    return Concat({std::to_string(region.left), ",", std::to_string(region.top), ",",
                   std::to_string(region.right), ",", std::to_string(region.bottom)});
}

}  // namespace pixora::cli
