// The windows of the import at the sizes of letters that people set, in every language: all is read, on a small screen.
#include "frmBilanCsv.h"
#include "frmImporterCsv.h"

#include "extensions/langue/modLang.h"
#include "extensions/plugins/FaceDocument.h"
#include "extensions/plugins/QrtScript.h"
#include "support/TableDeTest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QLabel>
#include <QSet>
#include <QtTest>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

/// A screen of 1024 x 600, less what a window manager takes.
constexpr QSize PetitEcran(1024 - 16, 600 - 40);

QObject* FaireTextes(void*, const char* nom)
{
    return std::strcmp(nom, "QrtTextes") == 0 ? new QrtTextes : nullptr;
}

QStringList MnemoniquesDe(const QWidget& form)
{
    QStringList textes;
    for (const auto* bouton : form.findChildren<QAbstractButton*>())
        textes.append(bouton->text());
    for (const auto* etiquette : form.findChildren<QLabel*>()) {
        if (etiquette->buddy())
            textes.append(etiquette->text());
    }
    QStringList mnemoniques;
    for (const QString& texte : std::as_const(textes)) {
        const QString mnemonique = QKeySequence::mnemonic(texte).toString();
        if (!mnemonique.isEmpty())
            mnemoniques.append(mnemonique);
    }
    return mnemoniques;
}

class PolicesCsv : public testing::Test
{
protected:
    PolicesCsv() { ZelvaneRegistreDuProgramme = &m_registre; }
    ~PolicesCsv() override
    {
        ZelvaneRegistreDuProgramme = nullptr;
        FichierLangue.clear();
        QApplication::setFont(m_police);
    }

    /// Makes a window at each size, in each language, and looks at it.
    void Regarder(const std::function<std::unique_ptr<QWidget>()>& faire, qsizetype mnemoniques)
    {
        const QDir langues(QStringLiteral(ZELVANE_LANGUES));
        for (const QString& langue : QStringList(QString()) + langues.entryList({u"*.ini"_s}, QDir::Files)) {
            FichierLangue = langue.isEmpty() ? QString() : langues.filePath(langue);
            for (const int points : {9, 13, 18}) {
                QFont police = m_police;
                police.setPointSize(points);
                QApplication::setFont(police);
                const std::unique_ptr<QWidget> form = faire();
                form->show();
                form->resize(form->size().boundedTo(PetitEcran));
                QCoreApplication::processEvents();
                Controler(*form, langue, points, mnemoniques);
            }
        }
    }

private:
    static void Controler(QWidget& form, const QString& langue, int points, qsizetype mnemoniques)
    {
        const QString lieu = u"%1%2-%3"_s.arg(form.objectName(), langue.section(u'.', 0, 0)).arg(points);
        if (const QByteArray dossier = qgetenv("POLICES_IMAGES"); !dossier.isEmpty())
            form.grab().save(QString::fromLocal8Bit(dossier) + u'/' + lieu + u".png"_s);
        EXPECT_EQ(form.size().boundedTo(PetitEcran), form.size()) << lieu.toStdString();
        const QStringList siens = MnemoniquesDe(form);
        EXPECT_EQ(siens.size(), mnemoniques) << lieu.toStdString();
        EXPECT_EQ(QSet<QString>(siens.begin(), siens.end()).size(), siens.size()) << lieu.toStdString();
        for (const auto* controle : form.findChildren<QWidget*>()) {
            const bool texte = qobject_cast<const QAbstractButton*>(controle) ||
                               (qobject_cast<const QLabel*>(controle) && controle->objectName() != u"note");
            if (!texte || !controle->isVisibleTo(&form) || controle->parentWidget()->inherits("QTableView"))
                continue;
            EXPECT_LE(controle->sizeHint().width(), controle->width()) << lieu.toStdString();
            EXPECT_LE(controle->sizeHint().height(), controle->height()) << lieu.toStdString();
            EXPECT_TRUE(controle->parentWidget()->rect().contains(controle->geometry())) << lieu.toStdString();
        }
    }

    ZelvaneRegistre m_registre{sizeof(ZelvaneRegistre), nullptr, nullptr, FaireTextes};
    QFont m_police = QApplication::font();
};

} // namespace

TEST_F(PolicesCsv, TheImport)
{
    const DossierDeTest dossier;
    dossier.Ecrire(u"aja.png"_s, "x");
    QByteArray octets = "Titre;Artiste;Année;Pochette;Commentaire\nAja;Steely Dan;1977;aja.png;\"Sur|deux\nlignes\"\n"
                        "Blue;Joni Mitchell;1971;blue.jpg\nKind of Blue;Miles Davis;1959;kob.jpg;Un long commentaire\n";
    QBuffer texte(&octets);
    texte.open(QIODevice::ReadOnly);
    Regarder([&] { return std::make_unique<frmImporterCsv>(texte, dossier.Fichier(u"a.csv"_s)); }, 6);
}

TEST_F(PolicesCsv, WhatIsTold)
{
    DocumentDeTest d;
    MettreColonnes(d.table, {"Titre", "Artiste"});
    AjouterEntrees(d.table, {{"Aja", "Steely Dan"}, {"Blue", "Joni Mitchell"}});
    FaceDocument face(d.doc);
    const zelvane::Table table(&face);
    BilanCsv bilan;
    bilan.lignes = 12345;
    bilan.vides = bilan.images = bilan.illisibles = 1234;
    bilan.remplaces = {123, 123, 123};
    bilan.interrompu = true;
    bilan.signalees = {{2, 1, TropPeuDeChamps | TexteApresGuillemet, {}}, {30, 2, SansDefaut, u"pochettes/x.png"_s}};
    Regarder([&] { return std::make_unique<frmBilanCsv>(bilan, table); }, 4);
}

TEST_F(PolicesCsv, HowFarItIs)
{
    Regarder(
        [&] {
            auto form = std::make_unique<frmAvancementCsv>();
            form->Montrer(400);
            return form;
        },
        0);
}
