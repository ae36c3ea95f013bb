// A film of a walk: pictures of the window in use with the words of the tutorial below, as uncompressed video.
#pragma once

#include <QImage>
#include <QPointF>
#include <cstdio>
#include <optional>
#include <string>

class QWidget;

namespace verlink::capture {

/// Writes YUV4MPEG2 to a stream; a tool like vpxenc makes a small file of it.
class Film {
   public:
    explicit Film(std::FILE* stream);

    static constexpr int kPerSecond = 10;

    /// What is told from now on.
    void Say(const std::string& words) { words_ = words; }
    /// The mouse over a drawing, in the window.
    struct Pointer {
        QPointF at;
        bool holds;  ///< a joint
    };
    /// The window as it is, for that long; with a ring around a widget of it when one is given, and with the pointer.
    void Show(QWidget& window, double seconds, const QWidget* ringed = nullptr, std::optional<Pointer> pointer = {});
    /// Has everything been written?
    bool Good() const { return good_; }

   private:
    void Write(const QImage& frame, int times);

    std::FILE* stream_;
    std::string words_;
    bool good_ = true;
};

}  // namespace verlink::capture
