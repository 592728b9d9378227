#include "cli/session.h"

#include "base/utf8.h"
#include "cli/concat.h"
#include "cli/paths.h"
#include "cli/report.h"

namespace pixora::cli {
namespace {

constexpr std::string_view kStripsTooMany =
    "warning: the strip table is too large; pixels are read from the start of the file";

std::string SizeText(const RegionSink& sink) {
    return Concat({std::to_string(sink.ImageWidth()), " x ", std::to_string(sink.ImageHeight()), " pixels"});
}

std::string OutsideText(const Options& options, const RegionSink& sink) {
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

std::optional<ImageBuffer> Session::Read(const std::string& file, bool with_samples, int& status) {
    ImportResult result = ReadImage(RequestFor(file), with_samples ? &sink : nullptr);
    status = kDone;
    if (result.image) {
        if (with_samples) sink.Complete();
        Warn(file, result);
        return std::move(result.image);
    }
    switch (with_samples ? sink.Ended() : RegionSink::End::none) {
        case RegionSink::End::outside:
            Say(file, OutsideText(options, sink));
            status = kUsage;
            break;
        case RegionSink::End::no_memory:
            Say(file, Concat({"there is not enough memory for ", SizeText(sink)}));
            status = kFailed;
            break;
        case RegionSink::End::stopped:
            status = kFailed;
            break;
        case RegionSink::End::none:
            status = Refuse(file, result);
            break;
    }
    return std::nullopt;
}

SourceRequest Session::RequestFor(const std::string& file) const {
    return {PathOf(file), options.valid_bits, options.auto_bit};
}

SampleImage SampleImageOf(const ImageBuffer& image, const RegionSink& sink) {
    const Region& part = sink.Part();
    return {part.right - part.left + 1, part.bottom - part.top + 1, image.colour != 0, EffectiveBits(image),
            sink.All()};
}

std::string RegionText(const Region& region) {
    return Concat({std::to_string(region.left), ",", std::to_string(region.top), ",",
                   std::to_string(region.right), ",", std::to_string(region.bottom)});
}

}  // namespace pixora::cli
