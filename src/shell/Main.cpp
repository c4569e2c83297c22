#include "shell/Main.h"

#include "base/Const_Vrac.h"
#include "base/Options.h"

#include <QFileInfo>

namespace {

void PasserLaMain(const QString& ligneDeCommande, EtapesDemarrage& etapes)
{
    etapes.SendTexte(ligneDeCommande);
    etapes.SowPrev();
    etapes.Class_Terminate98();
    etapes.DechargerCadre();
}

void Accueillir(EtapesDemarrage& etapes)
{
    etapes.MontrerPresentation();
    if (LireOption(Options::OpenLastFile)) {
        // Without a recent file this is the empty path, and the user is told that it does not exist. It is meant.
        etapes.OuvrirFichier(LireOption(Options::FRecent[0]));
        etapes.MajMenuRecents();
    }
    etapes.ProposerSecours();
    // The setting says the opposite of its name: 1 keeps the tips away.
    const bool sansAstuces = LireOption(Options::ShowTipsAtStartup);
    if (!sansAstuces && QFileInfo::exists(DossierProgramme() + QStringLiteral("astuces.txt")))
        etapes.MontrerAstuces();
}

} // namespace

SuiteDemarrage Main(const QString& ligneDeCommande, EtapesDemarrage& etapes)
{
    if (LireOption(Options::VerrifAssociation))
        EnregistrerAssociation();
    etapes.ChargerCadre();

    const bool autreInstance = etapes.PrevInstace();
    if (autreInstance) {
        PasserLaMain(ligneDeCommande, etapes);
    } else {
        etapes.MontrerCadre();
        if (ligneDeCommande.isEmpty()) {
            Accueillir(etapes);
        } else {
            etapes.OuvrirFichier(ligneDeCommande);
            etapes.MajMenuRecents();
            etapes.ProposerSecours();
        }
    }
    // Last, and on every path: nothing before may need the file.
    CreerZelvaneIni();
    return autreInstance ? SuiteDemarrage::Finir : SuiteDemarrage::Vivre;
}

void CreerZelvaneIni()
{
    CreerIni(FichierZelvaneIni(),
             QStringLiteral("[FileInfo]\r\n"
                            "Type=QRT INI FILE\r\n"
                            "Version=2.1\r\n"
                            "\r\n"
                            "[Preter]\r\n"
                            "count=0\r\n"
                            "\r\n"
                            "[Internet]\r\n"
                            "  #Parametre du proxy? mettre Use proxy à 0 (pas de proxy) ou 1 (proxy)\r\n"
                            "UseProxy=0\r\n"
                            "HostProxy=\r\n"
                            "PortProxy=\r\n"));
}
