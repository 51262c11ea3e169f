// SPDX-FileCopyrightText: 2026 The Halvex authors
// SPDX-License-Identifier: LicenseRef-Halvex

#include "host/camera/CFeatures.h"

#include "host/base/ClosestWords.h"
#include "host/base/Shown.h"
#include "host/camera/CGLibError.h"

#include <arv.h>

#include <limits>

namespace Host {

namespace {

QString plainNumber(double number)
{
    return QString::number(number, 'g', 9);
}

QString withUnit(const QString& value, const QString& unit)
{
    return value.isEmpty() || unit.isEmpty() ? value : QStringLiteral("%1 %2").arg(value, unit);
}

// Bounds that a type has anyway say nothing.
template <typename Number>
struct SBounds
{
    bool areBounds() const { return least < most && most < std::numeric_limits<Number>::max() / 2; }

    Number least;
    Number most;
};

SBounds<gint64> boundsOf(ArvGcInteger* integer)
{
    return {arv_gc_integer_get_min(integer, CGLibError().slot()), arv_gc_integer_get_max(integer, CGLibError().slot())};
}

SBounds<double> boundsOf(ArvGcFloat* number)
{
    return {arv_gc_float_get_min(number, CGLibError().slot()), arv_gc_float_get_max(number, CGLibError().slot())};
}

QString integerRange(ArvGcInteger* integer)
{
    const SBounds<gint64> bounds = boundsOf(integer);
    const gint64 step = arv_gc_integer_get_inc(integer, CGLibError().slot());
    if (!bounds.areBounds())
        return {};
    if (step > 1)
        return CFeatures::tr("%1 to %2 in steps of %3").arg(bounds.least).arg(bounds.most).arg(step);
    return CFeatures::tr("%1 to %2").arg(bounds.least).arg(bounds.most);
}

QString floatRange(ArvGcFloat* number)
{
    const SBounds<double> bounds = boundsOf(number);
    return bounds.areBounds() ? CFeatures::tr("%1 to %2").arg(plainNumber(bounds.least), plainNumber(bounds.most))
                              : QString();
}

QStringList enumValues(ArvGcEnumeration* enumeration)
{
    guint count = 0;
    const char** const values =
        arv_gc_enumeration_dup_available_string_values(enumeration, &count, CGLibError().slot());
    QStringList names;
    for (guint i = 0; values && i < count; ++i)
        names << QString::fromUtf8(values[i]);
    g_free(values);
    return names;
}

QString typeOf(ArvGcNode* node)
{
    if (ARV_IS_GC_COMMAND(node))
        return QStringLiteral("command");
    if (ARV_IS_GC_ENUMERATION(node)) // which is an integer too
        return QStringLiteral("one of");
    if (ARV_IS_GC_BOOLEAN(node))
        return QStringLiteral("boolean");
    if (ARV_IS_GC_INTEGER(node))
        return QStringLiteral("integer");
    if (ARV_IS_GC_FLOAT(node))
        return QStringLiteral("float");
    return ARV_IS_GC_STRING(node) ? QStringLiteral("text") : QString();
}

QString featureRange(ArvGcNode* node)
{
    if (ARV_IS_GC_ENUMERATION(node))
        return enumValues(ARV_GC_ENUMERATION(node)).join(QStringLiteral(", "));
    if (ARV_IS_GC_BOOLEAN(node))
        return QStringLiteral("true, false");
    if (ARV_IS_GC_INTEGER(node))
        return integerRange(ARV_GC_INTEGER(node));
    return ARV_IS_GC_FLOAT(node) ? floatRange(ARV_GC_FLOAT(node)) : QString();
}

bool isInteger(ArvGcNode* node)
{
    return ARV_IS_GC_INTEGER(node) && !ARV_IS_GC_ENUMERATION(node) && !ARV_IS_GC_BOOLEAN(node);
}

QString plainValueOf(ArvGcNode* node)
{
    CGLibError error;
    if (ARV_IS_GC_COMMAND(node))
        return {};
    if (ARV_IS_GC_FLOAT(node)) {
        const double value = arv_gc_float_get_value(ARV_GC_FLOAT(node), error.slot());
        return error ? QString() : plainNumber(value);
    }
    const char* const value = arv_gc_feature_node_get_value_as_string(ARV_GC_FEATURE_NODE(node), error.slot());
    return error || !value ? QString() : QString::fromUtf8(value);
}

QString unitOf(ArvGcNode* node)
{
    if (ARV_IS_GC_FLOAT(node))
        return QString::fromUtf8(arv_gc_float_get_unit(ARV_GC_FLOAT(node)));
    return isInteger(node) ? QString::fromUtf8(arv_gc_integer_get_unit(ARV_GC_INTEGER(node))) : QString();
}

template <typename Number>
void setBounds(const SBounds<Number>& bounds, SFeature* feature)
{
    if (!bounds.areBounds())
        return;
    feature->least = double(bounds.least);
    feature->most = double(bounds.most);
}

QString helpOf(ArvGcFeatureNode* feature)
{
    const char* const tip = arv_gc_feature_node_get_tooltip(feature);
    return QString::fromUtf8(tip ? tip : arv_gc_feature_node_get_description(feature)).simplified();
}

bool isLocked(ArvGcNode* node)
{
    return arv_gc_feature_node_is_locked(ARV_GC_FEATURE_NODE(node), CGLibError().slot());
}

void addPlain(ArvGcNode* node, SFeature* feature)
{
    feature->plainValue = plainValueOf(node);
    feature->unit = unitOf(node);
    feature->help = helpOf(ARV_GC_FEATURE_NODE(node));
    if (ARV_IS_GC_ENUMERATION(node)) {
        feature->choices = enumValues(ARV_GC_ENUMERATION(node));
    } else if (isInteger(node)) {
        setBounds(boundsOf(ARV_GC_INTEGER(node)), feature);
        feature->step = double(arv_gc_integer_get_inc(ARV_GC_INTEGER(node), CGLibError().slot()));
    } else if (ARV_IS_GC_FLOAT(node)) {
        setBounds(boundsOf(ARV_GC_FLOAT(node)), feature);
    }
}

bool isReadOnly(ArvGcNode* node)
{
    return arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(node)) == ARV_GC_ACCESS_MODE_RO;
}

bool isWritable(ArvGcNode* node)
{
    return !isLocked(node) && !isReadOnly(node);
}

QString nameOf(ArvGcNode* node)
{
    return QString::fromUtf8(arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(node)));
}

// Neither a register nor a value that is computed of others.
bool isForUsers(ArvDomNode* node)
{
    const bool isFeature = ARV_IS_GC_INTEGER_NODE(node) || ARV_IS_GC_FLOAT_NODE(node) || ARV_IS_GC_BOOLEAN(node) ||
                           ARV_IS_GC_ENUMERATION(node) || ARV_IS_GC_COMMAND(node);
    return isFeature && arv_gc_feature_node_get_name(ARV_GC_FEATURE_NODE(node));
}

// Decimal, or with 0x hexadecimal. A zero in front makes no octal number of it, as it would for the library.
qint64 wholeNumber(const QString& value, bool* ok)
{
    return value.toLongLong(ok, value.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) ? 16 : 10);
}

// What a boolean or a number takes.
QString wantedText(ArvGcNode* node)
{
    const QString range = featureRange(node);
    if (ARV_IS_GC_BOOLEAN(node))
        return CFeatures::tr("boolean, true, false");
    if (ARV_IS_GC_INTEGER(node))
        return range.isEmpty() ? CFeatures::tr("integer") : CFeatures::tr("integer, %1").arg(range);
    return range.isEmpty() ? CFeatures::tr("float") : CFeatures::tr("float, %1").arg(range);
}

// What is wrong with the value for a feature of that type, before the camera is asked; empty when nothing is.
QString refusal(ArvGcNode* node, const QString& value)
{
    bool ok = true;
    if (ARV_IS_GC_ENUMERATION(node)) {
        const QStringList values = enumValues(ARV_GC_ENUMERATION(node));
        if (!values.contains(value))
            return withHint(CFeatures::tr("the feature '%1' takes one of %2, not %3")
                                .arg(nameOf(node), values.join(QStringLiteral(", ")), shown(value)),
                            didYouMean(value, values));
    } else if (ARV_IS_GC_BOOLEAN(node)) {
        ok = value == QLatin1String("true") || value == QLatin1String("false");
    } else if (ARV_IS_GC_INTEGER(node)) {
        const qint64 number = wholeNumber(value, &ok);
        ok = ok && number >= arv_gc_integer_get_min(ARV_GC_INTEGER(node), CGLibError().slot()) &&
             number <= arv_gc_integer_get_max(ARV_GC_INTEGER(node), CGLibError().slot());
    } else if (ARV_IS_GC_FLOAT(node)) {
        const double number = value.toDouble(&ok);
        ok = ok && number >= arv_gc_float_get_min(ARV_GC_FLOAT(node), CGLibError().slot()) &&
             number <= arv_gc_float_get_max(ARV_GC_FLOAT(node), CGLibError().slot());
    }
    if (ok)
        return {};
    return CFeatures::tr("the feature '%1' takes %2, not %3").arg(nameOf(node), wantedText(node), shown(value));
}

} // namespace

std::vector<SFeature> CFeatures::all() const
{
    std::vector<SFeature> features;
    QSet<QString> seen;
    if (ArvGcNode* const root = arv_device_get_feature(m_device, "Root"))
        add(root, {}, &seen, &features);
    if (ArvGc* const description = arv_device_get_genicam(m_device))
        addOthers(ARV_DOM_NODE(description), &seen, &features);
    return features;
}

// Of what is in no category only what can be set is of use. The registers behind features are not told: whoever writes
// these goes round the checks of the feature.
void CFeatures::addOthers(ArvDomNode* parent, QSet<QString>* seen, std::vector<SFeature>* features) const
{
    for (ArvDomNode* each = arv_dom_node_get_first_child(parent); each && !m_isGone();
         each = arv_dom_node_get_next_sibling(each)) {
        if (!isForUsers(each))
            addOthers(each, seen, features); // it may be a group
        else if (!seen->contains(nameOf(ARV_GC_NODE(each))) && isWritable(ARV_GC_NODE(each)))
            add(ARV_GC_NODE(each), tr("In no category"), seen, features);
    }
}

// A camera may name a feature in two categories, and a category in itself.
void CFeatures::add(ArvGcNode* node, const QString& category, QSet<QString>* seen,
                    std::vector<SFeature>* features) const
{
    ArvGcFeatureNode* const feature = ARV_GC_FEATURE_NODE(node);
    const QString name = nameOf(node);
    if (seen->contains(name) || m_isGone())
        return;
    seen->insert(name);
    if (ARV_IS_GC_CATEGORY(node)) {
        const GSList* names = arv_gc_category_get_features(ARV_GC_CATEGORY(node));
        for (; names; names = names->next) {
            if (ArvGcNode* const child = arv_device_get_feature(m_device, static_cast<const char*>(names->data)))
                add(child, name, seen, features);
        }
    } else if (arv_gc_feature_node_is_implemented(feature, CGLibError().slot())) {
        SFeature found;
        found.category = category;
        found.name = name;
        found.type = typeOf(node);
        found.range = featureRange(node);
        found.isLocked = isLocked(node);
        found.isWritable = !found.isLocked && !isReadOnly(node);
        addPlain(node, &found);
        found.value = withUnit(found.plainValue, found.unit);
        features->push_back(found);
    }
}

QString CFeatures::refusalOf(const QString& name, const QString& value) const
{
    ArvGcNode* const node = arv_device_get_feature(m_device, name.toUtf8().constData());
    if (!node || !ARV_IS_GC_FEATURE_NODE(node) || ARV_IS_GC_CATEGORY(node)) {
        QStringList known;
        for (const SFeature& feature : all())
            known << feature.name;
        return withHint(tr("it has no feature %1").arg(shown(name)), didYouMean(name, known));
    }
    // First, since what is locked counts as read only for as long.
    if (isLocked(node))
        return tr("the feature '%1' cannot be written now").arg(name);
    if (isReadOnly(node))
        return tr("the feature '%1' is read only").arg(name);
    return refusal(node, value);
}

QString CFeatures::set(const QString& name, const QString& value) const
{
    const QString wrong = refusalOf(name, value);
    if (!wrong.isEmpty())
        return wrong;
    ArvGcNode* const node = arv_device_get_feature(m_device, name.toUtf8().constData());
    CGLibError error;
    if (ARV_IS_GC_COMMAND(node))
        arv_device_execute_command(m_device, name.toUtf8().constData(), error.slot());
    else if (isInteger(node))
        arv_gc_integer_set_value(ARV_GC_INTEGER(node), wholeNumber(value, nullptr), error.slot());
    else
        arv_gc_feature_node_set_value_from_string(ARV_GC_FEATURE_NODE(node), value.toUtf8().constData(), error.slot());
    return error ? tr("the feature '%1' refuses %2: %3").arg(name, shown(value), error.text()) : QString();
}

} // namespace Host
