// The pages of invoices, each invoice another one, with the fonts loaded:
//   page     InvoicePDF::render    against  Cairo and Pango drawing the same texts at the same places, and nothing else
//   hundred  a hundred invoices    against  one
//   bench_invoices [ROUNDS]
#include "TambaCore/Fixtures.h"
#include "TambaCore/Pages/InvoicePDF.h"

#include <cairo-pdf.h>
#include <pango/pangocairo.h>
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace tamba;
using Texts = std::vector<PDFCanvas::TextBox>;

constexpr int hundred = 100;

template <class Work>
double milliseconds(const Work& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

Texts textsOf(const Library& library, const Document& document) {
    auto canvas = PDFCanvas::pdf(InvoicePDF::pageSize, "", "", Instant{});
    canvas.recordTexts();
    InvoicePDF::draw(canvas, library, document, std::nullopt);
    return canvas.texts();
}

/// The floor: what a short program over the two libraries would do, one layout for each text.
std::size_t bare(const Texts& texts) {
    std::string bytes;
    const auto append = [](void* data, const unsigned char* from, unsigned int count) {
        static_cast<std::string*>(data)->append(reinterpret_cast<const char*>(from), count);
        return CAIRO_STATUS_SUCCESS;
    };
    cairo_surface_t* surface =
        cairo_pdf_surface_create_for_stream(append, &bytes, InvoicePDF::pageSize.width, InvoicePDF::pageSize.height);
    cairo_t* cr = cairo_create(surface);
    PangoContext* context = pango_font_map_create_context(pango_cairo_font_map_get_default());
    pango_cairo_context_set_resolution(context, 72);
    int page = 1;
    for (const PDFCanvas::TextBox& text : texts) {
        for (; page < text.page; ++page) cairo_show_page(cr);
        PangoLayout* layout = pango_layout_new(context);
        PangoFontDescription* font = pango_font_description_from_string(text.style.font.face.c_str());
        pango_font_description_set_absolute_size(font, text.style.font.size * PANGO_SCALE);
        pango_layout_set_font_description(layout, font);
        pango_font_description_free(font);
        pango_layout_set_text(layout, text.text.data(), static_cast<int>(text.text.size()));
        pango_layout_set_width(layout, static_cast<int>(text.cell.width * PANGO_SCALE));
        pango_layout_set_alignment(layout, text.style.align == Align::right ? PANGO_ALIGN_RIGHT : PANGO_ALIGN_LEFT);
        cairo_set_source_rgba(cr, text.style.color.red, text.style.color.green, text.style.color.blue,
                              text.style.color.alpha);
        cairo_move_to(cr, text.cell.x, text.cell.y);
        pango_cairo_show_layout(cr, layout);
        g_object_unref(layout);
    }
    cairo_show_page(cr);
    g_object_unref(context);
    cairo_destroy(cr);
    cairo_surface_finish(surface);
    cairo_surface_destroy(surface);
    return bytes.size();
}

void expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "%s\n", what);
    std::exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 3;
    const Library library = Fixtures::large(0, hundred * (rounds + 1), 0, {2026, 11, 20});
    const auto invoice = [&library](int i) -> const Document& {
        return library.documents[static_cast<std::size_t>(i)];
    };
    std::size_t bytes = 0;
    const auto render = [&](int i) { bytes += InvoicePDF::render(library, invoice(i), std::nullopt).size(); };

    std::vector<Texts> texts;
    for (int i = 0; i < hundred; ++i) texts.push_back(textsOf(library, invoice(i)));
    (void)bare(texts[0]);
    std::vector<double> ours, floor, all, ratios;
    for (int round = 1; round <= rounds; ++round) {
        std::vector<double> single;
        double sum = 0;
        for (int i = 0; i < hundred; ++i) {
            single.push_back(milliseconds([&] { render(round * hundred + i); }));
            sum += single.back();
            floor.push_back(
                milliseconds([&] { expect(bare(texts[static_cast<std::size_t>(i)]) > 1000, "empty page"); }));
        }
        ours.insert(ours.end(), single.begin(), single.end());
        all.push_back(sum);
        ratios.push_back(sum / median(single));
    }
    expect(bytes > 1000, "empty invoices");
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("page    %6.2f ms  floor %6.2f ms  ratio %.2f (bar 2.0)\n", median(ours), median(floor),
                median(ours) / median(floor));
    std::printf("hundred %6.1f ms  one   %6.2f ms  ratio %.0f (bar 110)  peak %ld MB (bar 100)\n", median(all),
                median(ours), median(ratios), usage.ru_maxrss / 1024);
    return 0;
}
