#include "entries/ChampDEntree.h"

#include "base/SurUneLigne.h"
#include "entries/Macros.h"
#include "platform/Plateforme.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStringListModel>
#include <QWheelEvent>

#include <algorithm>
#include <limits>

namespace {

/// The part of `texte` that differs from `ancien`, as a place in `ancien` and what stands there now.
struct Difference
{
    int debut;
    int longueur;
    QString nouveau;
};

TexteSaisi Corrige(const QString& texte, int caret)
{
    return DevelopperMacros({SurUneLigne(texte), SurUneLigne(texte.left(caret)).size()},
                            plateforme().horloge->Maintenant());
}

Difference Comparer(const QString& ancien, const QString& texte)
{
    const auto [a, b] = std::mismatch(ancien.begin(), ancien.end(), texte.begin(), texte.end());
    const auto debut = a - ancien.begin();
    const auto commun = std::min(ancien.size(), texte.size()) - debut;
    qsizetype fin = 0;
    while (fin < commun && ancien.at(ancien.size() - 1 - fin) == texte.at(texte.size() - 1 - fin))
        ++fin;
    return {static_cast<int>(debut), static_cast<int>(ancien.size() - debut - fin),
            texte.sliced(debut, texte.size() - debut - fin)};
}

/// Qt's own tells the text of the field in place of its name.
class ChampAccessible : public QAccessibleWidget
{
public:
    explicit ChampAccessible(ChampDEntree& champ) : QAccessibleWidget(&champ, QAccessible::ComboBox), m_champ(champ) {}

    QString text(QAccessible::Text quoi) const override
    {
        return quoi == QAccessible::Value ? m_champ.Texte() : QAccessibleWidget::text(quoi);
    }
    QAccessible::State state() const override
    {
        QAccessible::State etat = QAccessibleWidget::state();
        etat.editable = true;
        etat.expandable = true;
        etat.expanded = m_champ.view()->isVisible();
        etat.collapsed = !etat.expanded;
        return etat;
    }
    QStringList actionNames() const override { return QAccessibleWidget::actionNames() << showMenuAction(); }
    void doAction(const QString& action) override
    {
        if (action != showMenuAction())
            QAccessibleWidget::doAction(action);
        else if (m_champ.view()->isVisible())
            m_champ.hidePopup();
        else
            m_champ.showPopup();
    }

private:
    ChampDEntree& m_champ;
};

QAccessibleInterface* FaceDe(const QString& classe, QObject* objet)
{
    auto* champ = classe == u"ChampDEntree" ? qobject_cast<ChampDEntree*>(objet) : nullptr;
    return champ ? new ChampAccessible(*champ) : nullptr;
}

} // namespace

ChampDEntree::ChampDEntree(QWidget* parent) : QComboBox(parent), m_liste(new QStringListModel(this))
{
    QAccessible::installFactory(FaceDe);
    setModel(m_liste);
    setEditable(true);
    setInsertPolicy(NoInsert);
    // Texts complete nothing by themselves, and a long list is not measured for the width.
    setCompleter(nullptr);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    // By itself the list would take a text that is typed to its end for a choice of its first element.
    lineEdit()->disconnect(SIGNAL(editingFinished()), this);
    lineEdit()->disconnect(SIGNAL(returnPressed()), this);
    connect(lineEdit(), &QLineEdit::textChanged, this, &ChampDEntree::TexteChange);
    connect(this, &QComboBox::activated, this, [this](int element) { m_choix = element; });
}

QStringList ChampDEntree::Liste() const
{
    return m_liste->stringList();
}

void ChampDEntree::Montrer(const QString& texte, const QStringList& liste)
{
    MettreListe(liste);
    Montrer(texte);
}

void ChampDEntree::Montrer(const QString& texte)
{
    m_choix = -1;
    m_composition = false;
    m_dernier = Corrige(texte, 0).texte;
    if (m_dernier != Texte()) {
        const QScopedValueRollback silence(m_silence, true);
        lineEdit()->setText(m_dernier);
    }
    // The open list starts at this text.
    if (const auto element = Liste().lastIndexOf(m_dernier); element >= 0)
        setCurrentIndex(static_cast<int>(element));
    CaretALaFin();
    if (m_dernier != texte)
        emit Change(m_dernier);
}

void ChampDEntree::Remplacer(const QString& texte)
{
    Ecrire(texte, texte.size());
    TexteChange();
}

void ChampDEntree::CaretALaFin()
{
    lineEdit()->end(false);
}

void ChampDEntree::Retirer(int i)
{
    QStringList liste = Liste();
    liste.removeAt(i);
    m_choix = -1;
    MettreListe(liste);
}

void ChampDEntree::focusInEvent(QFocusEvent* event)
{
    QComboBox::focusInEvent(event);
    // Back from another program or from its own list the field is as it was left.
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason)
        emit Entree();
}

void ChampDEntree::inputMethodEvent(QInputMethodEvent* event)
{
    const bool pendant = m_composition;
    m_composition = !event->preeditString().isEmpty();
    QComboBox::inputMethodEvent(event);
    if (pendant && !m_composition)
        TexteChange();
}

/// The wheel over the field scrolls nothing: a text that was typed would be gone by a slip.
void ChampDEntree::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void ChampDEntree::TexteChange()
{
    if (m_silence)
        return;
    m_choix = -1;
    // A text that came past the history, as a choice from the list does, enters it.
    if (!lineEdit()->isUndoAvailable() && !lineEdit()->isRedoAvailable()) {
        const QString nouveau = Texte();
        const QScopedValueRollback silence(m_silence, true);
        lineEdit()->setText(m_dernier);
        Ecrire(nouveau, nouveau.size());
    }
    Corriger();
    if (Texte() == m_dernier)
        return;
    m_dernier = Texte();
    emit Change(m_dernier);
}

void ChampDEntree::Corriger()
{
    if (m_composition)
        return;
    const QString texte = Texte();
    const TexteSaisi corrige = Corrige(texte, lineEdit()->cursorPosition());
    if (corrige.texte == texte)
        return;
    // The step that brought the macro is taken back first, or undo would lead to the macro, which is replaced again.
    {
        const QScopedValueRollback silence(m_silence, true);
        lineEdit()->undo();
    }
    Ecrire(corrige.texte, corrige.caret);
}

/// Changes no more than what differs, so that it can be undone.
void ChampDEntree::Ecrire(const QString& texte, qsizetype caret)
{
    const QScopedValueRollback silence(m_silence, true);
    const Difference difference = Comparer(Texte(), texte);
    lineEdit()->setSelection(difference.debut, difference.longueur);
    lineEdit()->insert(difference.nouveau);
    lineEdit()->setCursorPosition(static_cast<int>(caret));
}

void ChampDEntree::MettreListe(const QStringList& liste)
{
    if (liste == Liste())
        return;
    const QScopedValueRollback silence(m_silence, true);
    const QString texte = Texte();
    const int caret = lineEdit()->cursorPosition();
    m_liste->setStringList(liste);
    setCurrentIndex(-1);
    lineEdit()->setText(texte);
    lineEdit()->setCursorPosition(caret);
}
