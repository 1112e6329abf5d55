// SPDX-License-Identifier: Apache-2.0
#include "Playback.h"

#include <glib-unix.h>
#include <gst/gst.h>

#include <csignal>
#include <cstdio>
#include <memory>
#include <string>

namespace zorel::ring {
namespace {

constexpr guint kStep = 20; // [ms] between two changes of the volume
/// What a sound server has taken is heard this much later [s].
constexpr double kLatency = 0.2;

struct Unreferences {
    void operator()(void* object) const { gst_object_unref(object); }
};
using Element = std::unique_ptr<GstElement, Unreferences>;

/// Sound servers, the most usual first; the last one is the bare device.
constexpr const char* kSinks[] = {"pulsesink", "pipewiresink", "alsasink"};

void nameStream(GstElement* sink) {
    if (g_object_class_find_property(G_OBJECT_GET_CLASS(sink), "stream-properties") != nullptr) {
        GstStructure* const properties =
            gst_structure_new("props", "media.role", G_TYPE_STRING, "alarm", nullptr);
        g_object_set(sink, "stream-properties", properties, nullptr);
        gst_structure_free(properties);
    }
}

/// A sink whose server answers; empty when none does.
Element openSink() {
    for (const char* name : kSinks) {
        GstElement* const made = gst_element_factory_make(name, nullptr);
        if (made == nullptr) {
            continue;
        }
        Element sink(GST_ELEMENT(gst_object_ref_sink(made)));
        nameStream(made);
        if (gst_element_set_state(made, GST_STATE_READY) == GST_STATE_CHANGE_SUCCESS) {
            return sink;
        }
        gst_element_set_state(made, GST_STATE_NULL);
    }
    return nullptr;
}

/// One file through one sink.
class Playback {
public:
    Playback(const std::string& file, GstElement* sink, double duration)
        : loop_(g_main_loop_new(nullptr, FALSE)), sink_(sink), duration_(duration) {
        pipeline_.reset(gst_parse_launch("uridecodebin name=file caps=audio/x-raw ! audioconvert ! "
                                         "audioresample ! volume name=loud volume=0 "
                                         "! audioconvert name=last",
                                         nullptr));
        const Element source(gst_bin_get_by_name(GST_BIN(pipeline_.get()), "file"));
        const Element last(gst_bin_get_by_name(GST_BIN(pipeline_.get()), "last"));
        loud_.reset(gst_bin_get_by_name(GST_BIN(pipeline_.get()), "loud"));
        gst_bin_add(GST_BIN(pipeline_.get()), sink);
        gst_element_link(last.get(), sink);
        gchar* const uri = gst_filename_to_uri(file.c_str(), nullptr);
        g_object_set(source.get(), "uri", uri, nullptr);
        g_free(uri);
    }
    Playback(const Playback&) = delete;
    Playback& operator=(const Playback&) = delete;
    ~Playback() {
        gst_element_set_state(pipeline_.get(), GST_STATE_NULL);
        g_main_loop_unref(loop_);
    }

    /// Whether it could be played; why not is said on the error stream.
    [[nodiscard]] bool run(const std::string& file) {
        GstBus* const bus = gst_element_get_bus(pipeline_.get());
        const guint watch = gst_bus_add_watch(bus, heard, this);
        const guint step = g_timeout_add(kStep, stepped, this);
        const guint term = g_unix_signal_add(SIGTERM, asked, this);
        const guint interrupt = g_unix_signal_add(SIGINT, asked, this);
        gst_element_set_state(pipeline_.get(), GST_STATE_PLAYING);
        g_main_loop_run(loop_);
        for (const guint source : {watch, step, term, interrupt}) {
            g_source_remove(source);
        }
        gst_object_unref(bus);
        if (!error_.empty()) {
            std::fprintf(stderr, "zorel-ring: %s cannot be played: %s\n", file.c_str(), error_.c_str());
        }
        return error_.empty();
    }
    /// Whether what failed was the sound server and not the file: one without any output takes no sound.
    [[nodiscard]] bool hasLostSink() const { return hasLostSink_; }

private:
    static gboolean heard(GstBus* /*bus*/, GstMessage* message, gpointer self) {
        static_cast<Playback*>(self)->take(message);
        return G_SOURCE_CONTINUE;
    }
    static gboolean stepped(gpointer self) {
        static_cast<Playback*>(self)->step();
        return G_SOURCE_CONTINUE;
    }
    static gboolean asked(gpointer self) {
        static_cast<Playback*>(self)->fadeNow();
        return G_SOURCE_CONTINUE;
    }

    void take(GstMessage* message) {
        const GstMessageType type = GST_MESSAGE_TYPE(message);
        if (type == GST_MESSAGE_ERROR) {
            GError* error = nullptr;
            gst_message_parse_error(message, &error, nullptr);
            error_ = error->message;
            hasLostSink_ = GST_MESSAGE_SRC(message) == GST_OBJECT(sink_);
            g_error_free(error);
            g_main_loop_quit(loop_);
        } else if (type == GST_MESSAGE_ASYNC_DONE && started_ < 0) {
            started_ = seconds();
        } else if (type == GST_MESSAGE_EOS) {
            again();
        }
    }

    /// A tone that is shorter than the ring starts anew; one that cannot has been heard, and that is that.
    void again() {
        if (gst_element_seek_simple(pipeline_.get(), GST_FORMAT_TIME, GST_SEEK_FLAG_FLUSH, 0) == FALSE) {
            g_main_loop_quit(loop_);
        }
    }

    void step() {
        if (started_ < 0) {
            return;
        }
        const double passed = seconds() - started_;
        if (passed >= duration_ + kLatency) {
            g_main_loop_quit(loop_);
        }
        const double loudness = loudnessAt(passed, duration_) * cut(passed);
        g_object_set(loud_.get(), "volume", loudness, nullptr);
    }

    /// The share of the loudness that is left of a ring that is being stopped.
    [[nodiscard]] double cut(double passed) const {
        return stopping_ < 0 ? 1.0 : std::max(0.0, 1.0 - (passed - stopping_) / kQuickFade);
    }

    void fadeNow() {
        if (started_ < 0) {
            g_main_loop_quit(loop_);
        } else if (stopping_ < 0) {
            stopping_ = seconds() - started_;
            duration_ = std::min(duration_, stopping_ + kQuickFade);
        }
    }

    [[nodiscard]] static double seconds() { return static_cast<double>(g_get_monotonic_time()) / 1e6; }

    GMainLoop* loop_;
    GstElement* sink_; ///< of the pipeline, too
    Element pipeline_;
    Element loud_;
    double duration_;        ///< [s]
    double started_ = -1.0;  ///< [s]; negative: not yet
    double stopping_ = -1.0; ///< [s] after the beginning; negative: nobody asked
    std::string error_;
    bool hasLostSink_ = false;
};

} // namespace

PlayResult playTone(const std::vector<std::string>& files, std::chrono::seconds duration) {
    for (const std::string& file : files) {
        const Element sink = openSink();
        if (!sink) {
            return PlayResult::noSoundServer;
        }
        Playback playback(file, sink.get(), static_cast<double>(duration.count()));
        if (playback.run(file)) {
            return file == files.front() ? PlayResult::played : PlayResult::playedOther;
        }
        if (playback.hasLostSink()) {
            return PlayResult::noSoundServer;
        }
    }
    return PlayResult::nothingPlayable;
}

} // namespace zorel::ring
