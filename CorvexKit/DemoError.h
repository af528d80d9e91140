#pragma once

#include <QString>

#include <exception>
#include <string>

namespace tamba {

/// Why a film was not made, as a finished sentence for whoever wanted it.
class DemoError : public std::exception {
public:
    enum class Code { storyboard, step, file, encoder, cancelled };

    DemoError(Code code, const QString& sentence) : code_(code), sentence_(sentence.toStdString()) {}
    [[nodiscard]] Code code() const { return code_; }
    [[nodiscard]] const char* what() const noexcept override { return sentence_.c_str(); }
    [[nodiscard]] QString sentence() const { return QString::fromStdString(sentence_); }

private:
    Code code_;
    std::string sentence_;
};

}  // namespace tamba
