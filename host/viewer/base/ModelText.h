// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#pragma once

#include <QString>

#include <functional>

namespace Plugin::Halvex {
class CNodeDataModel;
}

namespace Host {

/// What the host's models say in English, for people: their names, captions, categories, settings and what is told of
/// these, in the viewer's language. Of "PNG files: edges" the part before the colon is translated, the rest is a name.
/// Texts of other models, which may have translations of their own, stay as they are.
QString modelText(const QString& text);

/// The caption of a model in the viewer's language. A name that a person gave stays as it is.
QString captionText(Plugin::Halvex::CNodeDataModel& model);

/// Tells the caption that the model has now, in the viewer's language at the time of the call. The model may have gone.
std::function<QString()> captionTeller(Plugin::Halvex::CNodeDataModel& model);

/// A setting's name or choice as people see it: "Frames per second" for "framesPerSecond", "Newest wins" for
/// "NewestWins", in the viewer's language.
QString wordsOf(const QString& name);

/// A tool tip with \a text as it stands: Qt takes one that begins with a tag for HTML, and loads what that names.
QString asToolTip(const QString& text);

/// A message, which begins small as part of a line, as it stands by itself: with a capital.
QString asSentence(const QString& message);

} // namespace Host
