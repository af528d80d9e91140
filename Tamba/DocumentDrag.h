#pragma once

#include "Tamba/AppModel.h"

#include <QObject>
#include <QPoint>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace tamba {

/// Lets a document be dragged out of a list or off its page as a PDF, into a mail or a folder. Drafts stay: their page
/// has no number yet.
class DocumentDrag : public QObject {
    Q_OBJECT

public:
    /// `from`: what the mouse is pressed on. `document`: which one is meant then.
    DocumentDrag(AppModel& model, QWidget& from, std::function<std::optional<UUID>()> document, QObject* parent);

    /// The PDF under the name it is sent by, in a folder that goes with this; nothing for a draft or what is gone.
    [[nodiscard]] std::optional<std::filesystem::path> file() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drag();

    AppModel& model_;
    QWidget& from_;
    std::function<std::optional<UUID>()> document_;
    std::optional<QPoint> pressed_;
    std::unique_ptr<QTemporaryDir> folder_;
};

}  // namespace tamba
