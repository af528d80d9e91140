#include "TambaCore/Fixtures/Logo.h"

#include "TambaCore/Pages/PDFCanvas.h"

namespace tamba::Fixtures {

Image logo() {
    const Color turmeric = Color::hex("E2A32B"), ink = Color::hex("1F2A44"), paper = Color::gray(1);
    PDFCanvas canvas = PDFCanvas::bitmap({120, 120}, 4);
    canvas.fill({4, 4, 112, 112}, turmeric, 26);
    canvas.fill({28, 26, 18, 68}, ink, 4);
    canvas.fill({74, 26, 18, 68}, ink, 4);
    canvas.fill({40, 51, 40, 18}, ink);
    canvas.fill({77, 29, 12, 12}, paper, 6);
    return *canvas.image();
}

}  // namespace tamba::Fixtures
