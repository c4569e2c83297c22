#include "shell/OngletsAccessibles.h"

#include "extensions/langue/modLang.h"
#include "shell/BandeOnglets.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

/// One tab, by its index from 0.
class OngletAccessible : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    OngletAccessible(BandeOnglets& bande, int index) : m_bande(&bande), m_index(index) {}

    int Index() const { return m_index; }

    bool isValid() const override { return m_bande && m_index < m_bande->count(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_bande); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::PageTab; }

    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect place = m_bande->tabRect(m_index);
        return {m_bande->mapToGlobal(place.topLeft()), place.size()};
    }
    QString text(QAccessible::Text quoi) const override
    {
        if (!isValid())
            return {};
        if (quoi == QAccessible::Name)
            return m_bande->Titre(m_index + 1);
        const bool marque = quoi == QAccessible::Description && m_bande->EstMarque(m_index + 1);
        return marque ? LangMsg(u"msgEtatModifie"_s, u"modifié"_s).texte : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QAccessible::State state() const override
    {
        QAccessible::State etat;
        etat.invalid = !isValid();
        if (etat.invalid)
            return etat;
        etat.invisible = !m_bande->isVisible();
        etat.selectable = true;
        etat.focusable = true;
        etat.selected = m_index == m_bande->currentIndex();
        etat.focused = etat.selected && m_bande->hasFocus();
        return etat;
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override
    {
        if (isValid() && action == pressAction())
            m_bande->Presser(m_index + 1);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<BandeOnglets> m_bande;
    int m_index;
};

class BandeAccessible : public QAccessibleWidget
{
public:
    explicit BandeAccessible(BandeOnglets& bande) : QAccessibleWidget(&bande, QAccessible::PageTabList), m_bande(bande)
    {
    }

    int childCount() const override { return m_bande.count(); }
    QAccessibleInterface* child(int index) const override
    {
        if (index < 0 || index >= m_bande.count())
            return nullptr;
        QAccessible::Id& id = m_onglets[index];
        if (!id)
            id = QAccessible::registerAccessibleInterface(new OngletAccessible(m_bande, index));
        return QAccessible::accessibleInterface(id);
    }
    int indexOfChild(const QAccessibleInterface* enfant) const override
    {
        const auto* onglet = dynamic_cast<const OngletAccessible*>(enfant);
        return onglet ? onglet->Index() : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        return child(m_bande.tabAt(m_bande.mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override
    {
        return m_bande.hasFocus() ? child(m_bande.currentIndex()) : nullptr;
    }

protected:
    ~BandeAccessible() override
    {
        for (const QAccessible::Id id : std::as_const(m_onglets))
            QAccessible::deleteAccessibleInterface(id);
    }

private:
    BandeOnglets& m_bande;
    mutable QHash<int, QAccessible::Id> m_onglets; ///< those that were asked for
};

QAccessibleInterface* FaceDe(const QString& classe, QObject* objet)
{
    auto* bande = classe == u"BandeOnglets" ? qobject_cast<BandeOnglets*>(objet) : nullptr;
    return bande ? new BandeAccessible(*bande) : nullptr;
}

} // namespace

void InstallerOngletsAccessibles()
{
    QAccessible::installFactory(FaceDe);
}
