#include "catalogue/table/MyLVStockage.h"

#include <gtest/gtest.h>

namespace {

stockage::Cellule Faire(QByteArrayView octets, stockage::Codage codage)
{
    return {octets.data(), static_cast<uint32_t>(octets.size()), codage, true};
}

} // namespace

TEST(Cellule, GoesToUtf8AsItsTextWould)
{
    for (const QByteArrayView octets :
         {"", "abc", "\xE9t\xE9 \x80 \x81", "\xC3\xA9t\xC3\xA9", "a\xFF\xC3", "\xEF\xBB\xBF|x"}) {
        for (const stockage::Codage codage : {stockage::Codage::Cp1252, stockage::Codage::Utf8}) {
            const stockage::Cellule cellule = Faire(octets, codage);
            QByteArray sortie = "devant ";
            cellule.AjouterEnUtf8(sortie);
            EXPECT_EQ(sortie, "devant " + cellule.Texte().toUtf8()) << octets.data();
        }
    }
}

TEST(Cellule, OneThatWasNeverWrittenAddsNothing)
{
    QByteArray sortie = "devant";
    stockage::Cellule().AjouterEnUtf8(sortie);
    EXPECT_EQ(sortie, "devant");
}
