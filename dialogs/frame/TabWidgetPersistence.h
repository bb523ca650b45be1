#pragma once

#include "dialogs/frame/SerializerInterface.h"
#include "dialogs/property/DialogsApi.h"

#include <QObject>
#include <QPointer>

class QTabWidget;

namespace veldraw::dialogs::common {

/// Remembers, for the life of the process, which page of a tab widget was current.
///
/// Pages and tab widgets are known by their object names, so that a page that moved is still found; those without a name
/// are not remembered.
class VDSDKDIALOGS_DATA_QT_API TabWidgetPersistence : public QObject, public veldraw::common::SerializerInterface
{
public:
    /// @param tabs may die before this object
    explicit TabWidgetPersistence(QTabWidget& tabs);
    ~TabWidgetPersistence() override;

    void save() const override;
    void restore() const override;

private:
    QPointer<QTabWidget> m_tabs;
};

} // namespace veldraw::dialogs::common
