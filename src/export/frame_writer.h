#pragma once
// Writes the frames of an export into an open file, one at a time, as they are painted: a
// writer keeps what it needs of the frame before, never the frames themselves. Failures are
// thrown as an ExportError.
#include <QImage>
#include <QRect>

#include "export/export_error.h"

namespace trelvin {

class FrameWriter {
public:
    virtual ~FrameWriter() = default;
    // `changed`: the part of `frame` that differs from the frame before, the whole of the first.
    virtual void add(const QImage& frame, const QRect& changed) = 0;
    // Writes what is still to write; the file is complete after it.
    virtual void finish() = 0;
};

}  // namespace trelvin
