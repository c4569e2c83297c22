// The columns that usual collections start with.
#include "entries/ModelesDeCategorie.h"

#include "entries/ColonnesDeCategorie.h"
#include "extensions/langue/modLang.h"
#include "support/FileDeReponses.h"
#include "support/Impression.h"
#include "support/PlateformeDeTest.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(ModelesDeCategorie, ThereIsOneForEachUsualCollection)
{
    QStringList noms;
    for (const ModeleDeCategorie& modele : ModelesDeCategorie())
        noms.append(modele.nom);
    EXPECT_EQ(noms,
              QStringList({u"Disques"_s, u"Livres"_s, u"Films"_s, u"Bandes dessinées"_s, u"Timbres"_s, u"Vins"_s}));
    EXPECT_EQ(ModelesDeCategorie()[0].colonnes,
              QStringList({u"Artiste"_s, u"Titre"_s, u"Année"_s, u"Label"_s, u"Support"_s, u"Genre"_s}));
}

TEST(ModelesDeCategorie, EachOneMakesACategoryAsItIs)
{
    const FileDeReponses aucune;
    for (const ModeleDeCategorie& modele : ModelesDeCategorie()) {
        ColonnesDeCategorie colonnes;
        colonnes.Remplacer(modele.colonnes);
        EXPECT_TRUE(colonnes.Verifier()) << modele.nom.toStdString();
        EXPECT_EQ(QSet<QString>(modele.colonnes.begin(), modele.colonnes.end()).size(), modele.colonnes.size());
    }
}

TEST(ModelesDeCategorie, WhatATranslationCannotGiveIsLeftOut)
{
    FichierLangue = PlateformeDeTest::Courante().dossier.Ecrire(
        u"lang/english.ini"_s,
        "[other]\r\nmsgModeleDisques=Records\r\n"
        "msgModeleDisquesColonnes=Artist||Pr\xeat\xe9 |  Title |\r\nmsgModeleLivresColonnes=|\r\n");
    const std::vector<ModeleDeCategorie> modeles = ModelesDeCategorie();
    EXPECT_EQ(modeles[0].nom, "Records");
    EXPECT_EQ(modeles[0].colonnes, QStringList({u"Artist"_s, u"Title"_s}));
    EXPECT_EQ(modeles[1].nom, "Films") << "a template without columns is none";
}
