#include "Tamba/Sheets/AboutSheet.h"

#include "Tamba/QtText.h"
#include "Tamba/Widgets/Controls.h"

namespace tamba {

AboutSheet::AboutSheet(QWidget* parent, const std::filesystem::path& folder)
    : Sheet(parent, Icon::none, QStringLiteral("Tamba " TAMBA_VERSION),
            tr("Bookkeeping for freelancers and small studios.") + QStringLiteral("\n\n") +
                tr("Free software under the GNU General Public License, version 3 or later. It comes without any "
                   "warranty.")) {
    if (!folder.empty()) {
        auto* books = Controls::label(tr("Your books are in %1").arg(toQt(folder)), "caption", this);
        books->setWordWrap(true);
        books->setTextInteractionFlags(Qt::TextSelectableByMouse);
        books->setFocusPolicy(Qt::NoFocus);
        body().addWidget(books);
    }
    addButtons(tr("Close"), {});
    setFixedWidth(440);
}

}  // namespace tamba
