#include "platform/Region.h"

#include <gtest/gtest.h>

#include <array>

namespace {

const QLocale s_france(QLocale::French, QLocale::France);

/// The variables of the locale as one test needs them; a null value is a variable that is not set.
class Variables
{
public:
    Variables(const char* lcAll, const char* lcTime, const char* lang)
    {
        const std::array valeurs{lcAll, lcTime, lang};
        for (size_t i = 0; i < s_noms.size(); ++i) {
            m_avant.at(i) = qgetenv(s_noms.at(i));
            Mettre(s_noms.at(i), valeurs.at(i));
        }
    }
    ~Variables()
    {
        for (size_t i = 0; i < s_noms.size(); ++i)
            Mettre(s_noms.at(i), m_avant.at(i).isNull() ? nullptr : m_avant.at(i).constData());
    }
    Variables(const Variables&) = delete;
    Variables& operator=(const Variables&) = delete;

private:
    static void Mettre(const char* nom, const char* valeur) { valeur ? qputenv(nom, valeur) : qunsetenv(nom); }

    static constexpr std::array s_noms{"LC_ALL", "LC_TIME", "LANG"};
    std::array<QByteArray, 3> m_avant;
};

QLocale DesDates(const char* lcAll, const char* lcTime, const char* lang)
{
    const Variables variables(lcAll, lcTime, lang);
    return RegionDuSysteme().DesDates();
}

} // namespace

TEST(RegionTest, TheFirstVariableThatIsSetDecides)
{
    EXPECT_EQ(DesDates("sv_SE.UTF-8", "de_DE.UTF-8", "en_US.UTF-8"), QLocale("sv_SE"));
    EXPECT_EQ(DesDates("", "de_DE.UTF-8", "en_US.UTF-8"), QLocale("de_DE"));
    EXPECT_EQ(DesDates(nullptr, "de_DE.UTF-8", "en_US.UTF-8"), QLocale("de_DE"));
    EXPECT_EQ(DesDates(nullptr, nullptr, "en_US.UTF-8"), QLocale("en_US"));
}

TEST(RegionTest, WithoutARegionItIsFrance)
{
    EXPECT_EQ(DesDates(nullptr, nullptr, nullptr), s_france);
    EXPECT_EQ(DesDates("C.UTF-8", "de_DE", "en_US"), s_france);
    EXPECT_EQ(DesDates(nullptr, "POSIX", "en_US"), s_france);
    EXPECT_EQ(DesDates(nullptr, nullptr, "C"), s_france);
}

TEST(RegionTest, ANameMayHaveACharacterSetAndAVariant)
{
    EXPECT_EQ(RegionDuSysteme::Nommee("de_DE.ISO-8859-15@euro"), QLocale("de_DE"));
    EXPECT_EQ(RegionDuSysteme::Nommee("de_DE@euro"), QLocale("de_DE"));
    EXPECT_EQ(RegionDuSysteme::Nommee("nobody"), s_france);
}
