// The Monte Carlo count of multiway equity (multiway_equity.h), for MultiwayEquity once it has checked its
// input and chosen to sample.
//
// What one sample is: a deal of holdings drawn from the deals that count, in proportion to their weight
// (each player's holding drawn by its weight, the deal thrown away when two share a card; a player who may
// hold any holding at one weight is dealt two cards from the cards left), valued on B boards completed
// independently from the cards left (B = 6 while cards are to come and the players do not all share one
// range, else 1).
//
// What a sample adds for player j is not its own pot share but x_j, the mean over the B boards of the
// expected share of player j given the set of holdings dealt and the board, taken over every way of
// handing those holdings to the players. Given the set, the chance that player j holds holding i is
//     P(j, i) = w_j(i) x perm(W without row j and column i) / perm(W),
// where W(j, i) = w_j(i) is player j's weight for holding i (0 when it is not in j's range) and perm is the
// permanent (the sum over every assignment of the holdings to the players of the product of its weights):
// every deal of the same set comes with a chance in proportion to that product, and the boards do not
// depend on who holds what. So on a board with k winners x_j gets sum over the winners i of P(j, i) / k.
// E[x_j] is player j's equity (the tower rule) and its variance is no larger than that of the share on
// one board (Rao-Blackwell; the mean over B boards dealt independently given the holdings divides what
// the boards add to the variance by B). Win and tie are counted the same way (sum over the winners of
// P(j, i), on boards with one winner or with more).
//   - Players whose ranges are the same (the same live holdings at weights in the same proportion) are
//     exchangeable: P gives each of them the same chance of every holding, and a group of them gets the
//     group's mean. When every player has the same range, P(j, i) = 1/n and x_j = 1/n exactly in every
//     deal: the equity of each is 1/n with no error at all, while win and tie are still sampled.
//   - Players who can never hold each other's holdings (no live holding in two ranges) keep their own
//     shares: P is the identity.
// The standard error reported is that of this estimator: the standard deviation of x_j over the samples /
// sqrt(samples - 1). The deals reported count each deal of holdings once per board.
//
// Repeatable: each thread draws from its own generator (seeded from the seed and the thread's number) in
// rounds of fixed size, and the rounds are added in thread order, so a given seed and thread count repeat
// the same result (unless the time limit cuts a run short).
#pragma once

#include <cstdint>
#include <span>

#include "equity/multiway_equity.h"

namespace quillet {

// Samples the players' equity on `boardBits` (deck bits of 0, 3, 4 or 5 board cards) with `deadBits` out
// of the deck, on `threads` threads, until the largest standard error is at most options.targetError, the
// time limit or a cancel. Every player must have a live holding and some deal must exist. Fills
// result.players (equity, win, tie), standardError, deals and cancelled; sets result.error when a whole
// round of draws found no deal.
void SampleMultiwayEquity(std::span<const WeightedHoldingSet> ranges, uint64_t boardBits, uint64_t deadBits,
                          const MultiwayOptions& options, const MultiwayCallbacks& callbacks, int threads,
                          MultiwayResult& result);

}  // namespace quillet
