// Bytes that go from one archive into another without passing through memory; for the files of ccZip alone.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <utility>

namespace zipinterne {

/// A piece of a file.
struct Plage
{
    int fichier = -1; ///< descriptor, not owned
    uint64_t debut = 0;
    uint64_t taille = 0;
};

/// The library carries bytes from a source to the archive in a buffer. A source may leave the buffer empty and say here
/// which piece of a file belongs into it; the archive asks here before it writes a buffer. A buffer that does not
/// arrive as it was sent shows: then nothing of it counts.
class Relais
{
public:
    /// False when the buffer before has not arrived.
    bool Envoyer(std::span<char> tampon, const Plage& plage)
    {
        if (m_plage)
            return false;
        m_tampon = tampon;
        m_plage = plage;
        return true;
    }
    bool EnRoute() const { return m_plage.has_value(); }
    /// What the buffer stands for; nothing when it is not the one that was sent.
    std::optional<Plage> Recevoir(std::span<const char> tampon)
    {
        if (tampon.data() != m_tampon.data() || tampon.size() != m_tampon.size())
            return std::nullopt;
        return std::exchange(m_plage, std::nullopt);
    }

private:
    std::span<const char> m_tampon;
    std::optional<Plage> m_plage;
};

} // namespace zipinterne
