#include "base/Options.h"

#include "base/Const_Vrac.h"

#include <QObject>
#include <QPointer>

#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Suiveur
{
    QStringView cle;
    QPointer<const QObject> contexte;
    std::function<void()> agir;
};

std::vector<Suiveur>& Suiveurs()
{
    static std::vector<Suiveur> suiveurs;
    return suiveurs;
}

template<class UneOption> QVariant Lire(const UneOption& option, const QVariant& defaut)
{
    return LireOption(option.cle.toString(), defaut);
}

} // namespace

QString DossierParDefautDesImages()
{
    return DossierProgramme();
}

QString DossierTempParDefaut()
{
    return AjouterSlash(DossierProgramme()) + u"temp"_s;
}

QString LireOption(const OptionTexte& option)
{
    return Lire(option, option.defaut.toString()).toString();
}

QString LireOption(const OptionDossier& option)
{
    return Lire(option, option.defaut()).toString();
}

std::optional<double> LireOption(const OptionNombre& option)
{
    return OptionEnNombre(Lire(option, option.defaut));
}

bool LireOption(const OptionOuiNon& option)
{
    return LireOption(option, option.defaut);
}

bool LireOption(const OptionOuiNon& option, bool defaut)
{
    const QString valeur = Lire(option, BoolVersTexte(defaut)).toString();
    switch (option.regle) {
    case Oui::SiUn:
        return OptionEgale(valeur, 1);
    case Oui::SaufZero:
        return !OptionEgale(valeur, 0);
    case Oui::SaufTexteZero:
        break;
    }
    return TexteVersBool(valeur);
}

void EcrireOption(const OptionTexte& option, const QString& valeur)
{
    EcrireOption(option.cle.toString(), valeur);
}

void EcrireOption(const OptionDossier& option, const QString& valeur)
{
    EcrireOption(option.cle.toString(), valeur);
}

void EcrireOption(const OptionNombre& option, double valeur)
{
    EcrireOption(option.cle.toString(), valeur);
}

void EcrireOption(const OptionOuiNon& option, bool valeur)
{
    EcrireOption(option.cle.toString(), valeur);
}

void SuivreOption(const Option& option, const QObject& contexte, std::function<void()> agir)
{
    std::erase_if(Suiveurs(), [](const Suiveur& suiveur) { return !suiveur.contexte; });
    Suiveurs().push_back({option.cle, &contexte, std::move(agir)});
}

void DireOptionChangee(QStringView cle)
{
    // A copy: who is told may follow another setting, or end somebody who does.
    const std::vector<Suiveur> suiveurs = Suiveurs();
    for (const Suiveur& suiveur : suiveurs) {
        if (suiveur.contexte && suiveur.cle.compare(cle, Qt::CaseInsensitive) == 0)
            suiveur.agir();
    }
}
