#!/usr/bin/env python3
# Writes random quillet-cli command lines, one JSON list of arguments per line, from a fixed seed.
import json, random, sys
seed = int(sys.argv[1]) if len(sys.argv) > 1 else 20261123
n = int(sys.argv[2]) if len(sys.argv) > 2 else 400
rng = random.Random(seed)
R = "23456789TJQKA"; S = "cdhs"
deck = [r + s for r in R for s in S]
classes = []
for i, a in enumerate(reversed(R)):
    for j, b in enumerate(reversed(R)):
        if i == j: classes.append(a + b)
        elif j > i: classes.append(a + b + "s")
        else: classes.append(b + a)
def card_text(k, cards):
    return "".join(cards[:k])
def hand():
    x = rng.random()
    if x < 0.06: return ""
    if x < 0.09: return rng.choice(["AhXd", "Ah K", "ahkd", "AhAh", "AhK", "Zz9c", " Ah Kd ", "AH KD"])
    c = rng.sample(deck, 2); return "".join(c)
def board(used):
    x = rng.random()
    if x < 0.04: return rng.choice(["Tc8h", "Tc8h3sX", "tc8h3S", "Tc 8h 3s", "Xc8h3s", "Tc8h3s2x"])
    k = rng.choice([0, 3, 3, 3, 4, 4, 5])
    pool = [c for c in deck if c not in used] if rng.random() < 0.95 else deck
    return "".join(rng.sample(pool, k))
def clist(maxn):
    k = rng.randint(0, maxn)
    names = []
    for _ in range(k):
        c = rng.choice(classes)
        y = rng.random()
        if y < 0.1 and len(c) == 2 and c[0] != c[1]: c += "o"
        elif y < 0.15: c = c.lower()
        elif y < 0.17: c = rng.choice(["AKx", "AAo", "Z9", "AKso"])
        names.append(c)
    sep = rng.choice([",", ",", ", "])
    return sep.join(names)
def top():
    return rng.choice([str(rng.randint(1, 100)), "%.1f" % rng.uniform(0, 100), "%.3f" % rng.uniform(0, 30),
                       rng.choice(["12a", "-5", "0", "1.6", "100", "99.9", "", "5.", ".5"])])
out = []
for i in range(n):
    cmd = rng.choice(["cook", "cook", "cook", "equity", "equity"])
    h = hand()
    used = [h[i:i+2] for i in range(0, len(h), 2)] if len(h) == 4 else []
    b = board(used)
    args = [cmd, "--hand", h, "--board", b]
    if rng.random() < 0.25: args += ["--top", top()]
    else: args += ["--range", clist(25)]
    if rng.random() < 0.3: args += ["--seen", clist(8)]
    if cmd == "cook":
        for sw in ["--no-simplify", "--simplify-further", "--show-empty", "--win-lose-icons", "--category-icons"]:
            if rng.random() < 0.3: args.append(sw)
    if rng.random() < 0.4: args.append("--json")
    if rng.random() < 0.03: args.append(rng.choice(["--fast", "extra"]))
    if rng.random() < 0.02: args = [a for a in args if a != "--board"][:len(args) - 2]
    if cmd == "equity" and b and len(b) == 6 and rng.random() < 0.5:
        pass
    out.append(args)
# fixed error/edge cases
out += [["cook"], ["equity", "--hand"], ["cook", "--hand", "AhKd", "--board", "", "--range", "AA", "--top", "5"],
        ["equity", "--hand", "AhKd", "--board", ""], ["cook", "--hand", "AhKd", "--board", "", "--range", "AA", "--nope"],
        ["equity", "--hand", "", "--board", "", "--range", "AA"], ["--version"], ["frobnicate"], [],
        ["cook", "--hand", "AhKd", "--board", "2c3c4c", "--range", "AA", "x"],
        ["profiles"], ["profiles", "list", "--json"], ["profiles", "show"], ["profiles", "bogus"],
        ["tables"], ["tables", "info"], ["tables", "info", "--threads", "2"], ["tables", "generate", "--threads", "x"]]
for a in out: print(json.dumps(a))
