// A drop-down list of columns with a part to type in. A line counts as chosen when the user took it from the list: what
// he types chooses none, also where it reads like one.
#pragma once

#include "columns/ChoixDeColonne.h"

#include <QComboBox>
#include <QStringList>

class QLabel;
class QStringListModel;

class ListeDeColonnes : public QComboBox
{
    Q_OBJECT

public:
    explicit ListeDeColonnes(QWidget* parent = nullptr);

    /// What it is called, as its label says it.
    void Nommer(const QLabel& etiquette);

    /// Other lines; none is chosen, and the text is empty.
    void Remplir(const QStringList& lignes);
    /// Chooses a line, from 0; with one that is not there none, and the text is empty.
    void Choisir(int position);
    /// Writes a text as if it was typed.
    void MettreTexte(const QString& texte);

    ChoixDeColonne Choix() const;

signals:
    /// The user clicks, types or chooses here, or comes here by keys.
    void Touchee();

protected:
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    QStringListModel* m_lignes;
    int m_position = -1;
};
