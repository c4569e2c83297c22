// The dialog on a table in memory, by what a user does with it.
#pragma once

#include "ModeleDeGroupes.h"
#include "SourceDeTest.h"
#include "frmDoublons.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>

class DocumentEnMemoire : public DocumentATrier
{
public:
    DocumentEnMemoire(const QStringList& titres, const QList<QStringList>& contenu, int colonnePret = 0)
        : lignes(contenu), m_titres(titres), m_colonnePret(colonnePret)
    {
    }
    int Lignes() const override { return static_cast<int>(lignes.size()); }
    int Colonnes() const override { return static_cast<int>(m_titres.size()); }
    QStringList Lire(const QList<int>& colonnes, int premiere, int nombre) const override
    {
        if (pendantLecture)
            pendantLecture();
        return SourceDeTest(lignes.mid(premiere - 1, nombre)).Lire(colonnes, 1, nombre);
    }
    QStringList Images(int premiere, int nombre) const override { return images.mid(premiere - 1, nombre); }
    QStringList Titres() const override { return m_titres; }
    int ColonnePret() const override { return m_colonnePret; }
    void Supprimer(const QList<int>& parties) override
    {
        supprimees = parties;
        for (auto ici = parties.rbegin(); ici != parties.rend(); ++ici)
            lignes.removeAt(*ici - 1);
    }

    QList<QStringList> lignes;
    QStringList images; ///< of the first rows; the others have none
    QList<int> supprimees;
    std::function<void()> pendantLecture;

private:
    QStringList m_titres;
    int m_colonnePret;
};

template<class Widget = QAbstractButton> Widget& Trouver(const QWidget& form, const char* nom)
{
    auto* widget = form.findChild<Widget*>(QString::fromLatin1(nom));
    if (!widget)
        throw std::runtime_error(nom);
    return *widget;
}
inline void Cliquer(const QWidget& form, const char* nom)
{
    QTest::mouseClick(&Trouver(form, nom), Qt::LeftButton, Qt::NoModifier, QPoint(10, Trouver(form, nom).height() / 2));
}
inline QString Texte(const QWidget& form, const char* nom)
{
    return Trouver<QLabel>(form, nom).text();
}
inline QAbstractItemView& Arbre(const QWidget& form)
{
    return Trouver<QAbstractItemView>(form, "Arbre");
}
inline ModeleDeGroupes& Modele(const QWidget& form)
{
    return *qobject_cast<ModeleDeGroupes*>(Arbre(form).model());
}
/// The groups that the tree shows, each entry by its row, with an "x" where it is checked: "1 4x, 2 5".
inline QString Trouves(const QWidget& form)
{
    const QAbstractItemModel& modele = *Arbre(form).model();
    QStringList groupes;
    for (int groupe = 0; groupe < modele.rowCount(); ++groupe) {
        QStringList entrees;
        const QModelIndex tete = modele.index(groupe, 0);
        for (int i = 0; i < modele.rowCount(tete); ++i) {
            const QModelIndex entree = modele.index(i, 0, tete);
            const bool cochee = entree.data(Qt::CheckStateRole).toInt() == Qt::Checked;
            entrees << entree.data().toString() + QLatin1StringView(cochee ? "x" : "");
        }
        groupes << entrees.join(u' ');
    }
    return groupes.join(QStringLiteral(", "));
}
/// Clicks on the mark of a column (from 1) in the list.
inline void CliquerSurColonne(const QWidget& form, int colonne)
{
    auto& liste = Trouver<QListWidget>(form, "Colonnes");
    liste.scrollToItem(liste.item(colonne - 1));
    const QRect place = liste.visualItemRect(liste.item(colonne - 1));
    QTest::mouseClick(liste.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(place.left() + 10, place.center().y()));
}
