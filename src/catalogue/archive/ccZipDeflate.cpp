// A file as an archive source that comes deflated, in one go in memory: libdeflate takes less than half the time of the
// library's own stream, which has to do for what is too large, and where there is no libdeflate.
#include "catalogue/archive/ccZipSource.h"

#include <libdeflate.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace zipinterne {

namespace {

class SourceDeflate : public SourceFichier
{
public:
    SourceDeflate(Ajout& ajout, const struct stat& fichier, int niveau)
        : SourceFichier(ajout, fichier), m_niveau(niveau)
    {
    }

protected:
    zip_int64_t Ouvrir() override;
    zip_int64_t Lire(std::span<char> vers) override;
    void Fermer() override;
    void Completer(zip_stat_t& etat) const override;

private:
    using Octets = std::unique_ptr<char[]>;

    bool LireTout(std::span<char> vers);
    zip_int64_t Comprimer(std::span<const char> clair);

    int m_niveau;
    Octets m_comprime; ///< while open
    size_t m_longueur = 0;
    size_t m_rendus = 0;
    std::optional<uint32_t> m_crc;
};

zip_int64_t SourceDeflate::Ouvrir()
{
    if (SourceFichier::Ouvrir() != 0)
        return -1;
    const auto taille = static_cast<size_t>(m_fichier.st_size);
    const Octets clair(new (std::nothrow) char[taille]);
    if (!clair)
        return Echec(ZIP_ER_MEMORY);
    if (!LireTout({clair.get(), taille}))
        return Echec(ZIP_ER_READ);
    NoterEtat();
    return Comprimer({clair.get(), taille});
}

bool SourceDeflate::LireTout(std::span<char> vers)
{
    while (!vers.empty()) {
        const ssize_t lus = LireSuite(m_entree.Numero(), vers);
        if (lus <= 0)
            return false;
        vers = vers.subspan(static_cast<size_t>(lus));
    }
    return true;
}

zip_int64_t SourceDeflate::Comprimer(std::span<const char> clair)
{
    const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compresseur(
        libdeflate_alloc_compressor(m_niveau), libdeflate_free_compressor);
    if (!compresseur)
        return Echec(ZIP_ER_MEMORY);
    const size_t place = libdeflate_deflate_compress_bound(compresseur.get(), clair.size());
    m_comprime.reset(new (std::nothrow) char[place]);
    if (!m_comprime)
        return Echec(ZIP_ER_MEMORY);
    m_longueur = libdeflate_deflate_compress(compresseur.get(), clair.data(), clair.size(), m_comprime.get(), place);
    if (m_longueur == 0)
        return Echec(ZIP_ER_INTERNAL);
    m_crc = libdeflate_crc32(0, clair.data(), clair.size());
    m_rendus = 0;
    return 0;
}

zip_int64_t SourceDeflate::Lire(std::span<char> vers)
{
    const size_t rendus = std::min(vers.size(), m_longueur - m_rendus);
    std::memcpy(vers.data(), m_comprime.get() + m_rendus, rendus);
    m_rendus += rendus;
    return static_cast<zip_int64_t>(rendus);
}

void SourceDeflate::Fermer()
{
    m_comprime.reset();
    SourceFichier::Fermer();
}

void SourceDeflate::Completer(zip_stat_t& etat) const
{
    etat.comp_method = ZIP_CM_DEFLATE;
    etat.valid |= ZIP_STAT_COMP_METHOD;
    if (m_crc) {
        etat.crc = *m_crc;
        etat.comp_size = m_longueur;
        etat.valid |= ZIP_STAT_CRC | ZIP_STAT_COMP_SIZE;
    }
}

} // namespace

zip_source_t* CreerSourceDeflate(zip_t* archive, Ajout& ajout, const struct stat& fichier, int niveau)
{
    return SourceFichier::Donner(archive, std::make_unique<SourceDeflate>(ajout, fichier, niveau));
}

} // namespace zipinterne
