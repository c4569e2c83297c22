// Steps that may need more memory than there is: they end with a message, and not with the program.
#pragma once

#include <new>
#include <utility>

/// Tells that memory ran out ("msgMemoire").
void DireManqueDeMemoire();

/// The result of a step of a flow. Where memory runs out in it, all that it had taken is free again, the user is told,
/// and the result is `sinon`.
template<class Resultat, class Etape> Resultat AvecMemoire(Etape&& etape, Resultat sinon)
{
    try {
        return std::forward<Etape>(etape)();
    } catch (const std::bad_alloc&) {
        // Told below: what the exception held is free then.
    }
    DireManqueDeMemoire();
    return sinon;
}
