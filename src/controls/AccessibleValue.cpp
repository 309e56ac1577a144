// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "controls/AccessibleValue.h"

#include <QAccessibleWidget>
#include <QWidget>

namespace marvo {

namespace {

class Presenter final : public QAccessibleWidget, public QAccessibleValueInterface
{
public:
    Presenter(QWidget* widget, AccessibleValueSource& source)
        : QAccessibleWidget(widget, source.accessibleRole()), m_source(source)
    {}

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::ValueInterface)
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Value)
            return QAccessibleWidget::text(kind);
        const AccessibleValue value = m_source.accessibleValue();
        return value.text.isEmpty() ? QString::number(value.current) : value.text;
    }

    QVariant currentValue() const override { return m_source.accessibleValue().current; }
    void setCurrentValue(const QVariant& value) override { m_source.requestValue(value.toDouble()); }
    QVariant maximumValue() const override { return m_source.accessibleValue().maximum; }
    QVariant minimumValue() const override { return m_source.accessibleValue().minimum; }
    QVariant minimumStepSize() const override { return m_source.accessibleValue().step; }

private:
    AccessibleValueSource& m_source; ///< the widget, which outlives this object
};

QAccessibleInterface* present(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    auto* source = dynamic_cast<AccessibleValueSource*>(object);
    return widget && source ? new Presenter(widget, *source) : nullptr;
}

} // namespace

void installAccessibleValues()
{
    static const bool installed = [] {
        QAccessible::installFactory(present);
        return true;
    }();
    static_cast<void>(installed);
}

void announceValue(QWidget& widget, double value)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleValueChangeEvent event(&widget, value);
    QAccessible::updateAccessibility(&event);
}

} // namespace marvo
