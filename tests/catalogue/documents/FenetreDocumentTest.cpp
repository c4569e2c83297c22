#include "catalogue/documents/FenetreDocument.h"

#include "support/PlateformeDeTest.h"

using namespace Qt::StringLiterals;

TEST(NouveauTag, IsTheLetterAndTheWholePartOfTimeAndChance)
{
    PlateformeDeTest& plateforme = PlateformeDeTest::Courante();
    plateforme.horloge.heure.setTime(QTime(1, 0, 0, 900));
    plateforme.hasard.tirages = {0.5, 0.0};
    EXPECT_EQ(NouveauTag(), "a3850");
    plateforme.horloge.heure.setTime(QTime(0, 0));
    EXPECT_EQ(NouveauTag(), "a0");
}
