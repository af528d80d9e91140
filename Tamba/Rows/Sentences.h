#pragma once

#include <string>
#include <string_view>

/// What the core and the updates put in finished English sentences, in the language of the windows: a sentence is known
/// by its words, and the values between them go to their places in the translation. What is not known, such as
/// everything that a user typed, stays as it stands.
///
///     date.title = Sentences::shown(deadline.title);  // "GSTR-1 for October 2026": "अक्टूबर 2026 का GSTR-1"
namespace tamba::Sentences {

[[nodiscard]] std::string shown(std::string_view english);
/// The reasons of a suggestion. They are joined by commas, which the names in them may hold, too.
[[nodiscard]] std::string reasons(std::string_view english);
/// Months and weekdays alone or as a heading: "Oct", "July–September 2026", "Saturday, 21 November 2026". Dates in rows
/// and forms keep the short form that the documents have.
[[nodiscard]] std::string months(std::string_view formatted);

}  // namespace tamba::Sentences
