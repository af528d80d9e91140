#pragma once

#include "TambaCore/Pages/Images.h"
#include "TambaCore/Pages/PDFCanvas.h"
#include "TambaCore/Receipts/ReceiptReader.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

/// Bills as a till prints them, for tests: on pictures and on PDF pages.
namespace tamba::testing {

struct Printed {
    std::string left, right;
};
using Bill = std::vector<Printed>;

inline constexpr Size billSize{240, 200};

inline void print(PDFCanvas& canvas, const Bill& bill, const Color& ink = {}) {
    double y = 16;
    for (const Printed& row : bill) {
        const PDFCanvas::Style style{.font = PDFCanvas::systemFont(11), .color = ink};
        canvas.text(row.left, 14, y, 130, style);
        canvas.text(row.right, 120, y, 106, style.aligned(Align::right));
        y += 22;
    }
}

/// As a scan of 200 dots an inch shows it.
inline Image scanned(const Bill& bill, const Color& ink = {}) {
    PDFCanvas canvas = PDFCanvas::bitmap(billSize, 200.0 / 72);
    print(canvas, bill, ink);
    return *canvas.image();
}

inline std::string pdf(const std::vector<Bill>& pages) {
    PDFCanvas canvas = PDFCanvas::pdf(billSize, "Bill", "", Instant{});
    for (const Bill& page : pages) {
        canvas.beginPage();
        print(canvas, page);
    }
    return *canvas.finish();
}

/// A page that holds a picture of the bill, and `stamp` as text.
inline std::string scannedPDF(const Bill& bill, const std::string& stamp = {}) {
    PDFCanvas canvas = PDFCanvas::pdf({billSize.width, billSize.height + 20}, "Scan", "", Instant{});
    canvas.beginPage();
    canvas.draw(scanned(bill), {0, 0, billSize.width, billSize.height});
    canvas.text(stamp, 10, billSize.height, 200, {.font = PDFCanvas::systemFont(8)});
    return *canvas.finish();
}

inline Raster grey(const Image& image) {
    Raster result{Raster::Kind::grey, image.width, image.height, {}};
    for (std::size_t i = 0; i < image.pixels.size(); i += 4) result.pixels.push_back(image.pixels[i + 1]);
    return result;
}

}  // namespace tamba::testing
