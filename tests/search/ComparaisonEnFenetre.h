// The window of comparisons in the program's frame, for tests of what a user sees and does.
#pragma once

#include "search/frmCompare1.h"
#include "shell/CadreEnFenetre.h"
#include "support/GardeModale.h"
#include "vue/ModeleTable.h"
#include "vue/VueDesLignes.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

class ComparaisonEnFenetre : public CadreEnFenetre
{
protected:
    void SetUp() override { Montrer(); }

    QString Ecrire(const QString& nom, const QList<QByteArray>& entrees)
    {
        TexteDeCatalogue texte;
        texte.colonnes = {"Titre|2880|", "Artiste|1440|", "Prêté|600|"};
        texte.entrees = entrees;
        return dossier.Ecrire(nom, texte.Texte());
    }
    Form1& OuvrirAvec(const QString& nom, const QList<QByteArray>& entrees)
    {
        EXPECT_TRUE(OuvrirFichier(*cadre, Ecrire(nom, entrees), TypeQrt2, true)) << nom.toStdString();
        return Laisser(), dynamic_cast<Form1&>(*cadre->Documents().back());
    }
    /// Two documents that differ both ways, and their windows.
    void OuvrirDeux()
    {
        un = &OuvrirAvec("un.qrt", {"Aja|Steely Dan||", "Nana|Zola||z.gif", "Takk|Sigur||"});
        deux = &OuvrirAvec("deux.qrt", {"Takk|Autre||", "Zut|Zappa||", "Bof|Abba||", "aja|x||"});
    }

    /// By the item of the menu that is in the frame's bar.
    frmCompare1& Comparateur()
    {
        if (Form1* active = cadre->FenetreActive())
            active->findChild<QAction*>("mComparer2Categories")->trigger();
        else
            Menu("mComparer2Cat").trigger();
        Laisser();
        frmCompare1* form = Ouvert();
        EXPECT_TRUE(form);
        return *form;
    }
    /// Null when none is on show.
    frmCompare1* Ouvert() const
    {
        for (auto* form : cadre->findChildren<frmCompare1*>()) {
            if (form->isVisible())
                return form;
        }
        return nullptr;
    }

    template<class Controle> static Controle& De(const QWidget& form, const QString& nom)
    {
        auto* controle = form.findChild<Controle*>(nom);
        EXPECT_TRUE(controle) << nom.toStdString();
        return *controle;
    }
    static QComboBox& Liste(const QWidget& form, int liste)
    {
        return De<QComboBox>(form, QStringLiteral("CategoriesList_%1").arg(liste));
    }
    static void Saisir(const QWidget& form, int liste, const QString& texte)
    {
        QLineEdit* ligne = Liste(form, liste).lineEdit();
        ligne->selectAll();
        QTest::keyClick(ligne, Qt::Key_Delete);
        QTest::keyClicks(ligne, texte);
    }
    static void Cliquer(const QWidget& form, const QString& bouton)
    {
        QTest::mouseClick(&De<QPushButton>(form, bouton), Qt::LeftButton);
    }
    static QStringList Colonne(const QWidget& form, const QString& vue, int colonne = 1)
    {
        const VueDesLignes& liste = De<VueDesLignes>(form, vue);
        liste.Modele().Rafraichir();
        return ColonneDe(liste.Modele().Table(), colonne);
    }

    /// Compares both documents by columns (from 0), in the dialog that asks for them; `avant` is done there first.
    void Comparer(
        frmCompare1& form, int colonneA = 0, int colonneB = 0,
        const std::function<void(QWidget&)>& avant = [](QWidget&) {})
    {
        const QWidget* sauf = form.isModal() ? &form : nullptr;
        const GardeModale garde(
            [&](QWidget& colonnes) {
                EXPECT_EQ(colonnes.objectName(), "frmCompare2");
                for (int i = 0; i < colonneA; ++i)
                    QTest::keyClick(&De<QComboBox>(colonnes, "Colonne_0"), Qt::Key_Down);
                for (int i = 0; i < colonneB; ++i)
                    QTest::keyClick(&De<QComboBox>(colonnes, "Colonne_1"), Qt::Key_Down);
                avant(colonnes);
                Cliquer(colonnes, "btComparer");
            },
            5000, sauf);
        Cliquer(form, "btComparer");
    }
    /// The window, with the paths of both documents chosen.
    frmCompare1& ComparateurDesDeux()
    {
        OuvrirDeux();
        frmCompare1& form = Comparateur();
        Liste(form, 0).setCurrentIndex(0);
        Liste(form, 1).setCurrentIndex(1);
        return form;
    }
    QStringList Messages() const
    {
        QStringList textes;
        for (const auto& affiche : reponses.Affiches())
            textes.append(affiche.message.texte);
        return textes;
    }

    Form1* un = nullptr;
    Form1* deux = nullptr;
};
