// The search dialog over a category of four entries, by what a user does with it.
#pragma once

#include "catalogue/texte/LectureQrt.h"
#include "entries/GestesDEditeur.h"
#include "search/frmRecherche.h"
#include "support/CadreDeTest.h"
#include "support/FileDeFichiers.h"
#include "support/FileDeReponses.h"
#include "support/GardeModale.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"
#include "support/SuiteDeModales.h"
#include "support/TableDeTest.h"
#include "vue/VueDesLignes.h"

#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

template<class Controle> Controle& Le(const QWidget& form, const char* nom)
{
    return *form.findChild<Controle*>(QString::fromLatin1(nom));
}
inline VueDesLignes& Liste(const QWidget& form)
{
    return Le<VueDesLignes>(form, "ListView1");
}
inline QLineEdit& Text1(const QWidget& form)
{
    return Le<QLineEdit>(form, "Text1");
}
inline QString Compte(const QWidget& form)
{
    return Le<QLabel>(form, "StatusBar1_1").text();
}
/// Puts another text into the field, as a user types it.
inline void Ecrire(const QWidget& form, const QString& texte)
{
    Text1(form).setFocus();
    QTest::keyClick(&Text1(form), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&Text1(form), Qt::Key_Delete);
    QTest::keyClicks(&Text1(form), texte);
}
/// A search, to its end.
inline void Chercher(const QWidget& form, const QString& texte)
{
    Ecrire(form, texte);
    QTest::keyClick(&Text1(form), Qt::Key_Return);
    QCoreApplication::processEvents();
}
/// A column of the results, as the list shows it.
inline QStringList Resultats(const QWidget& form, int colonne = 1)
{
    QCoreApplication::processEvents();
    const QAbstractItemModel& modele = *Liste(form).model();
    QStringList textes;
    for (int i = 0; i < modele.rowCount(); ++i)
        textes.append(modele.index(i, colonne - 1).data().toString());
    return textes;
}
inline QPoint PlaceDe(const QWidget& form, int ligne, int colonne = 1)
{
    return Liste(form).visualRect(Liste(form).model()->index(ligne - 1, colonne - 1)).center();
}
inline void CliquerSurLigne(const QWidget& form, int ligne, Qt::KeyboardModifiers avec = Qt::NoModifier)
{
    QTest::mouseClick(Liste(form).viewport(), Qt::LeftButton, avec, PlaceDe(form, ligne));
}
inline void DoubleCliquer(const QWidget& form, int ligne)
{
    CliquerSurLigne(form, ligne);
    QTest::mouseDClick(Liste(form).viewport(), Qt::LeftButton, Qt::NoModifier, PlaceDe(form, ligne));
}
inline void CliquerSurTitre(const QWidget& form, int colonne)
{
    QHeaderView& titres = *Liste(form).horizontalHeader();
    const int x = titres.sectionViewportPosition(colonne - 1) + titres.sectionSize(colonne - 1) / 2;
    QTest::mouseClick(titres.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, titres.height() / 2));
    QCoreApplication::processEvents();
}
inline void Touche(const QWidget& form, Qt::Key touche, Qt::KeyboardModifiers avec = Qt::NoModifier)
{
    QTest::keyClick(&Liste(form), touche, avec);
}

class FrmRechercheTest : public testing::Test
{
protected:
    FrmRechercheTest() : m_avant(InstallerCadre(&cadre))
    {
        doc.TmpFolder = dossier.Chemin();
        doc.SetCheminReel(QStringLiteral("/disques/R&B.qrt"));
        Charger({"Abbey Road|Beatles|rock||abbey.jpg", "Dummy|Portishead|trip-hop||", "Blue Train|Coltrane|jazz||",
                 "Kind of Blue|Davis|JAZZ|Ida - 01/02/2026|"});
    }
    ~FrmRechercheTest() override { InstallerCadre(m_avant); }

    void Charger(const QList<QByteArray>& entrees)
    {
        TexteDeCatalogue texte;
        texte.trie = "0";
        texte.colonnes = {"Titre|2000|", "Artiste|1500|", "Genre|1000|", "Prêté|600|"};
        texte.entrees = entrees;
        dossier.Ecrire(QStringLiteral("Zelvane.qrt"), texte.Texte());
        ChargerFichier(doc);
        doc.IlFautSauver = false;
    }
    /// Runs the dialog through these steps. The last one closes it, unless it is closed by then.
    void Lancer(std::vector<SuiteDeModales::Etape> etapes)
    {
        etapes.back().geste = [geste = etapes.back().geste](QWidget& form) {
            geste(form);
            form.close();
        };
        const SuiteDeModales suite(std::move(etapes));
        frmRecherche form;
        form.SetDocument(fenetre);
        form.Lancer();
    }
    void Lancer(const std::function<void(QWidget&)>& geste) { Lancer({{"frmRecherche", geste}}); }

    CadreDeTest cadre;
    Cadre* m_avant;
    FenetreDeTest& fenetre = dynamic_cast<FenetreDeTest&>(cadre.NouvelleFenetre());
    Categorie& doc = fenetre.myqrt;
    MyLV& table = fenetre.table;
    DossierDeTest dossier;
    FileDeReponses reponses;
};
