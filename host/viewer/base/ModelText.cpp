// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/viewer/base/ModelText.h"

#include "host/base/ModelProperties.h"

#include <Halvex/graph/CNodeDataModel.h>

#include <QCoreApplication>
#include <QTextDocument>

namespace Host {

namespace {

constexpr const char* context = "Host::ModelText";

// The models are shared with the command line, which speaks English. So their texts are listed here, for the
// translators. The English translation leaves out options of the command line.
[[maybe_unused]] constexpr const char* knownTexts[] = {
    QT_TRANSLATE_NOOP("Host::ModelText", "Filters"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Sinks"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Sources"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Tools"),

    QT_TRANSLATE_NOOP("Host::ModelText", "Blur"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Camera"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Camera Source"),
    QT_TRANSLATE_NOOP("Host::ModelText", "DecouplerVGR"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Edges"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Histogram"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Image View"),
    QT_TRANSLATE_NOOP("Host::ModelText", "PNG Sink"),
    QT_TRANSLATE_NOOP("Host::ModelText", "PNG files"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Raw Sink"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Raw files"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Threshold"),
    QT_TRANSLATE_NOOP("Host::ModelText", "To Image"),
    QT_TRANSLATE_NOOP("Host::ModelText", "To image"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Video"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Video Sink"),

    QT_TRANSLATE_NOOP("Host::ModelText", "Frames per second"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Level"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Method"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Most waiting"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Parallelism"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Policy"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Priority"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Sink name"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Size"),
    QT_TRANSLATE_NOOP("Host::ModelText", "View name"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Write every"),

    QT_TRANSLATE_NOOP("Host::ModelText", "Background"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Box"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Canny"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Drop newest"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Drop oldest"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Fixed"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Gaussian"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Median"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Newest wins"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Normal"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Otsu"),
    QT_TRANSLATE_NOOP("Host::ModelText", "Sobel"),

    QT_TRANSLATE_NOOP("Host::ModelText",
                      "Background keeps one core free for what is recorded, as is right for previews."),
    QT_TRANSLATE_NOOP("Host::ModelText",
                      "Canny draws thin lines, and follows an edge down to a third of 'level'; Sobel draws all of it."),
    QT_TRANSLATE_NOOP("Host::ModelText",
                      "Gaussian keeps most detail, Box is fastest, Median removes single wrong pixels."),
    QT_TRANSLATE_NOOP("Host::ModelText", "Grey values above it become white. Otsu does not ask for it."),
    QT_TRANSLATE_NOOP("Host::ModelText", "How fast the video plays."),
    QT_TRANSLATE_NOOP("Host::ModelText", "How much the grey value must change."),
    QT_TRANSLATE_NOOP("Host::ModelText", "It writes one of so many frames; 0: as the run says, with --write-every."),
    QT_TRANSLATE_NOOP("Host::ModelText",
                      "Otsu finds the threshold that separates each image best, Fixed takes 'level'."),
    QT_TRANSLATE_NOOP("Host::ModelText", "Pixels along each side of the square in which the change is looked for."),
    QT_TRANSLATE_NOOP("Host::ModelText", "Pixels along each side of the square that a pixel is smoothed over."),
    QT_TRANSLATE_NOOP("Host::ModelText", "The name of its folder. A chain gives it."),
    QT_TRANSLATE_NOOP("Host::ModelText", "What stands above the image."),
};

} // namespace

QString modelText(const QString& text)
{
    const QString whole = QCoreApplication::translate(context, text.toUtf8().constData());
    const int colon = text.indexOf(QLatin1String(": "));
    if (whole != text || colon < 0)
        return whole;
    return QCoreApplication::translate(context, text.left(colon).toUtf8().constData()) + text.mid(colon);
}

QString captionText(Plugin::Halvex::CNodeDataModel& model)
{
    return captionTeller(model)();
}

std::function<QString()> captionTeller(Plugin::Halvex::CNodeDataModel& model)
{
    const QString caption = model.caption();
    // What a person calls a model is one of its settings.
    for (const QMetaProperty& property : propertiesOf(model)) {
        if (property.userType() == QMetaType::QString && property.read(&model).toString() == caption)
            return [caption] { return caption; };
    }
    return [caption] { return modelText(caption); };
}

QString wordsOf(const QString& name)
{
    QString words;
    for (const QChar letter : name) {
        if (letter.isUpper() && !words.isEmpty())
            words += QLatin1Char(' ');
        words += words.isEmpty() ? letter.toUpper() : letter.toLower();
    }
    return modelText(words);
}

QString asToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

QString asSentence(const QString& message)
{
    QString sentence = message;
    if (!sentence.isEmpty())
        sentence[0] = sentence[0].toUpper();
    return sentence;
}

} // namespace Host
