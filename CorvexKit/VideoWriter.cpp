#include "CorvexKit/VideoWriter.h"

#include <QByteArray>
#include <QTemporaryFile>

#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <system_error>
#include <utility>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libavutil/opt.h>
#include <libswscale/swscale.h>
}

namespace tamba {
namespace {

constexpr AVRational timeBase{1, static_cast<int>(FrameTimes::perSecond)};

/// What is freed by a function that takes the address of the pointer.
template <class Thing, void (*release)(Thing**)>
struct Released {
    void operator()(Thing* thing) const { release(&thing); }
};
using Codec = std::unique_ptr<AVCodecContext, Released<AVCodecContext, avcodec_free_context>>;
using Frame = std::unique_ptr<AVFrame, Released<AVFrame, av_frame_free>>;
using Packet = std::unique_ptr<AVPacket, Released<AVPacket, av_packet_free>>;
struct Scaler {
    void operator()(SwsContext* context) const { sws_freeContext(context); }
};
struct Container {
    void operator()(AVFormatContext* context) const {
        if (context->pb) avio_closep(&context->pb);
        avformat_free_context(context);
    }
};

std::string ending(const std::filesystem::path& file) {
    std::string text = file.extension().string();
    for (char& letter : text)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return text;
}

/// The style that the sample description of 3GPP timed text (TS 26.245, 5.16) asks for: white, centred at the foot.
QByteArray timedTextStyle() {
    const auto big = [](quint32 value, int bytes) {
        QByteArray text;
        for (int byte = bytes - 1; byte >= 0; --byte) text.append(static_cast<char>(value >> (8 * byte)));
        return text;
    };
    const QByteArray font = "Sans-Serif";
    QByteArray fonts = big(1, 2) + big(1, 2) + big(static_cast<quint32>(font.size()), 1) + font;
    fonts.prepend(big(static_cast<quint32>(fonts.size()) + 8, 4) + "ftab");
    QByteArray style = big(0, 4) + big(1, 1) + big(0xFF, 1) + big(0, 4);  // flags, centre, bottom, no ground
    style += big(0, 8);                                                   // the box: where the player likes
    style += big(0, 4) + big(1, 2) + big(0, 1) + big(18, 1) + big(0xFFFFFFFF, 4);
    return style + fonts;
}

}  // namespace

struct VideoWriter::Parts {
    std::filesystem::path target;
    QTemporaryFile file;
    bool webm = false;
    std::unique_ptr<AVFormatContext, Container> container;
    Codec codec;
    std::unique_ptr<SwsContext, Scaler> scaler;
    Frame frame;
    Packet packet;
    AVStream* video = nullptr;
    AVStream* captions = nullptr;
    std::optional<Ticks> last;         // the picture that waits for its duration
    std::map<Ticks, Ticks> durations;  // of pictures in the encoder, by their times

    [[noreturn]] void refuse(DemoError::Code code, const QString& why) const {
        throw DemoError(code, QStringLiteral("The film “%1” could not be made: %2.")
                                  .arg(QString::fromStdString(target.filename().string()), why));
    }
    /// Hands back `result` unless it is an error.
    int good(int result) const {
        if (result >= 0) return result;
        char text[AV_ERROR_MAX_STRING_SIZE] = {};
        av_strerror(result, text, sizeof text);
        const bool encoder = result == AVERROR_EXTERNAL || result == AVERROR_INVALIDDATA || result == AVERROR(EINVAL);
        refuse(encoder ? DemoError::Code::encoder : DemoError::Code::file, QString::fromUtf8(text).toLower());
    }
    void open(const QSize& size);
    void openCodec(const QSize& size);
    void openCaptions();
    void send(AVFrame* picture);
    void write(AVStream& stream, AVRational base);
    void checkDisk() const { good(container->pb->error); }
};

void VideoWriter::Parts::openCodec(const QSize& size) {
    const AVCodec* encoder = avcodec_find_encoder_by_name(webm ? "libvpx-vp9" : "libx264");
    if (!encoder) refuse(DemoError::Code::encoder, QStringLiteral("this computer has no encoder for it"));
    codec.reset(avcodec_alloc_context3(encoder));
    codec->width = size.width();
    codec->height = size.height();
    codec->pix_fmt = AV_PIX_FMT_YUV420P;
    codec->time_base = timeBase;
    codec->framerate = {FrameTimes::framesPerSecond, 1};
    codec->gop_size = 8 * FrameTimes::framesPerSecond;
    codec->thread_count = 2;
    codec->color_primaries = AVCOL_PRI_BT709;
    codec->color_trc = AVCOL_TRC_BT709;
    codec->colorspace = AVCOL_SPC_BT709;
    codec->color_range = AVCOL_RANGE_MPEG;
    codec->flags |= AV_CODEC_FLAG_BITEXACT;
    if (container->oformat->flags & AVFMT_GLOBALHEADER) codec->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    const auto set = [this](const char* name, const char* value) {
        good(av_opt_set(codec->priv_data, name, value, 0));
    };
    if (webm) {
        // "Good" takes little more time than "realtime" and a tenth of the room for pictures of windows.
        set("deadline", "good");
        set("cpu-used", "5");
        set("row-mt", "1");
        set("crf", "33");
    } else {
        set("preset", "veryfast");
        set("crf", "22");
    }
    good(avcodec_open2(codec.get(), encoder, nullptr));
    video = avformat_new_stream(container.get(), nullptr);
    video->time_base = timeBase;
    video->avg_frame_rate = codec->framerate;
    good(avcodec_parameters_from_context(video->codecpar, codec.get()));
    video->codecpar->codec_tag = 0;
}

void VideoWriter::Parts::openCaptions() {
    captions = avformat_new_stream(container.get(), nullptr);
    captions->time_base = {1, 1000};
    AVCodecParameters& form = *captions->codecpar;
    form.codec_type = AVMEDIA_TYPE_SUBTITLE;
    form.codec_id = webm ? AV_CODEC_ID_WEBVTT : AV_CODEC_ID_MOV_TEXT;
    captions->disposition = 0;  // burnt in already: shown twice only when asked for
    if (webm) return;
    const QByteArray style = timedTextStyle();
    form.extradata =
        static_cast<std::uint8_t*>(av_mallocz(static_cast<std::size_t>(style.size()) + AV_INPUT_BUFFER_PADDING_SIZE));
    form.extradata_size = static_cast<int>(style.size());
    std::memcpy(form.extradata, style.constData(), static_cast<std::size_t>(style.size()));
}

void VideoWriter::Parts::open(const QSize& size) {
    const auto folder = std::filesystem::absolute(target).parent_path();
    file.setFileTemplate(QString::fromStdString((folder / ('.' + target.filename().string())).string()) +
                         QStringLiteral(".XXXXXX"));
    if (!file.open()) refuse(DemoError::Code::file, file.errorString().toLower());
    av_log_set_level(AV_LOG_QUIET);
    const std::string name = "file:" + file.fileName().toStdString();
    AVFormatContext* made = nullptr;
    good(avformat_alloc_output_context2(&made, nullptr, webm ? "webm" : "mp4", name.c_str()));
    container.reset(made);
    container->flags |= AVFMT_FLAG_BITEXACT;
    openCodec(size);
    openCaptions();
    good(avio_open(&container->pb, name.c_str(), AVIO_FLAG_WRITE));
    AVDictionary* options = nullptr;
    // The index in front, so that a film plays while it is still being fetched.
    if (!webm) av_dict_set(&options, "movflags", "+faststart", 0);
    const int result = avformat_write_header(container.get(), &options);
    av_dict_free(&options);
    good(result);
    scaler.reset(sws_getContext(size.width(), size.height(), AV_PIX_FMT_BGRA, size.width(), size.height(),
                                AV_PIX_FMT_YUV420P, SWS_BILINEAR | SWS_ACCURATE_RND, nullptr, nullptr, nullptr));
    const int* table = sws_getCoefficients(SWS_CS_ITU709);
    sws_setColorspaceDetails(scaler.get(), table, 1, table, 0, 0, 1 << 16, 1 << 16);
    frame.reset(av_frame_alloc());
    frame->format = AV_PIX_FMT_YUV420P;
    frame->width = size.width();
    frame->height = size.height();
    good(av_frame_get_buffer(frame.get(), 0));
    packet.reset(av_packet_alloc());
}

void VideoWriter::Parts::write(AVStream& stream, AVRational base) {
    packet->stream_index = stream.index;
    av_packet_rescale_ts(packet.get(), base, stream.time_base);
    good(av_interleaved_write_frame(container.get(), packet.get()));
    checkDisk();
}

/// Null: no more pictures come.
void VideoWriter::Parts::send(AVFrame* picture) {
    good(avcodec_send_frame(codec.get(), picture));
    while (true) {
        const int result = avcodec_receive_packet(codec.get(), packet.get());
        if (result == AVERROR(EAGAIN) || result == AVERROR_EOF) return;
        good(result);
        if (const auto known = durations.find(packet->pts); known != durations.end()) {
            packet->duration = known->second;
            durations.erase(known);
        }
        write(*video, timeBase);
    }
}

QString refusedFilmName(const std::filesystem::path& file) {
    const std::string kind = ending(file);
    if ((kind == ".mp4" || kind == ".webm") && !file.stem().empty()) return {};
    return QStringLiteral("The name of a film ends in .mp4 or .webm.");
}

VideoWriter::VideoWriter(const std::filesystem::path& file, const QSize& size) : parts_(std::make_unique<Parts>()) {
    if (const QString refused = refusedFilmName(file); !refused.isEmpty())
        throw DemoError(DemoError::Code::file, refused);
    parts_->target = file;
    parts_->webm = ending(file) == ".webm";
    parts_->open(size);
}

VideoWriter::~VideoWriter() = default;

void VideoWriter::add(const QImage& picture, Ticks at) {
    Parts& parts = *parts_;
    // Only the next picture tells how long one is shown.
    if (parts.last) {
        parts.durations[*parts.last] = at - *parts.last;
        parts.send(parts.frame.get());
    }
    parts.good(av_frame_make_writable(parts.frame.get()));
    const std::uint8_t* rows[] = {picture.constBits()};
    const int widths[] = {static_cast<int>(picture.bytesPerLine())};
    sws_scale(parts.scaler.get(), rows, widths, 0, picture.height(), parts.frame->data, parts.frame->linesize);
    parts.frame->pts = at;
    parts.last = at;
}

void VideoWriter::add(const Cue& cue) {
    Parts& parts = *parts_;
    QByteArray text = cue.text.toUtf8().left(0xFFFF);
    if (!parts.webm) {
        const auto length = static_cast<unsigned>(text.size());
        text.prepend(static_cast<char>(length & 0xFF)).prepend(static_cast<char>(length >> 8));
    }
    parts.good(av_new_packet(parts.packet.get(), static_cast<int>(text.size())));
    std::memcpy(parts.packet->data, text.constData(), static_cast<std::size_t>(text.size()));
    parts.packet->pts = parts.packet->dts = cue.from;
    parts.packet->duration = cue.to - cue.from;
    parts.packet->flags |= AV_PKT_FLAG_KEY;
    parts.write(*parts.captions, timeBase);
}

void VideoWriter::finish(Ticks end) {
    Parts& parts = *parts_;
    if (!parts.last) parts.refuse(DemoError::Code::encoder, QStringLiteral("it has no pictures"));
    parts.durations[*parts.last] = std::max<Ticks>(1, end - *parts.last);
    parts.send(parts.frame.get());
    parts.send(nullptr);
    parts.good(av_write_trailer(parts.container.get()));
    avio_flush(parts.container->pb);
    parts.checkDisk();
    parts.good(avio_closep(&parts.container->pb));
    parts.file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    std::error_code failure;
    std::filesystem::rename(parts.file.fileName().toStdString(), parts.target, failure);
    if (failure) parts.refuse(DemoError::Code::file, QString::fromStdString(failure.message()).toLower());
    parts.file.setAutoRemove(false);
}

}  // namespace tamba
