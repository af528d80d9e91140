#pragma once

#include <QString>
#include <QStringList>

#include <functional>

/// How the words of a caption are put into lines. Pure: the width of a text is asked of the caller.
namespace tamba::CaptionLayout {

inline constexpr int mostLines = 3;

/// The words in as few lines as `width` allows, made about equally long. What does not fit into the most lines ends in
/// “…”, as does a word that is wider than a line.
[[nodiscard]] QStringList lines(const QString& words, int width, const std::function<int(const QString&)>& widthOf);

}  // namespace tamba::CaptionLayout
