#include "columns/ListeDeColonnes.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QStringListModel>
#include <QWheelEvent>

ListeDeColonnes::ListeDeColonnes(QWidget* parent) : QComboBox(parent), m_lignes(new QStringListModel(this))
{
    setModel(m_lignes);
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr); // what is typed stands as it is typed
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(10);
    // By itself the list would choose a line that a text reads like when the field is left.
    lineEdit()->disconnect(SIGNAL(editingFinished()), this);
    lineEdit()->disconnect(SIGNAL(returnPressed()), this);
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        m_position = -1;
        emit Touchee();
    });
    connect(this, &QComboBox::activated, this, [this](int position) {
        m_position = position;
        emit Touchee();
    });
}

void ListeDeColonnes::Nommer(const QLabel& etiquette)
{
    const QString nom = etiquette.text().remove(u'&');
    setAccessibleName(nom);
    lineEdit()->setAccessibleName(nom); // the focus is in there
}

void ListeDeColonnes::Remplir(const QStringList& lignes)
{
    m_lignes->setStringList(lignes);
    Choisir(-1);
}

void ListeDeColonnes::Choisir(int position)
{
    m_position = position >= 0 && position < count() ? position : -1;
    setCurrentIndex(m_position); // its text comes and goes with it
}

void ListeDeColonnes::MettreTexte(const QString& texte)
{
    Choisir(-1);
    setEditText(texte);
}

ChoixDeColonne ListeDeColonnes::Choix() const
{
    // The field shows a line break as something else: the line itself is meant.
    return {m_position >= 0 ? itemText(m_position) : currentText(), m_position};
}

bool ListeDeColonnes::event(QEvent* event)
{
    if (event->type() == QEvent::FocusIn)
        emit Touchee();
    return QComboBox::event(event);
}

/// The wheel over the field scrolls nothing: another column would be chosen by a slip.
void ListeDeColonnes::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}
