#!/usr/bin/env python3
# run.py CLI CASES OUTDIR: runs every case and writes its stdout, stderr and exit status; then the profile cases.
import json, os, subprocess, sys, shutil, random
cli, cases, outdir = sys.argv[1:4]
shutil.rmtree(outdir, ignore_errors=True); os.makedirs(outdir)
env = dict(os.environ, HOME=outdir + "/home", XDG_DATA_HOME=outdir + "/xdg")
def run(i, args):
    p = subprocess.run([os.path.abspath(cli)] + args, capture_output=True, env=env, cwd=outdir)
    with open(f"{outdir}/{i:04d}", "wb") as f:
        f.write(json.dumps(args).encode() + b"\n--out--\n" + p.stdout + b"\n--err--\n" + p.stderr + b"\n--rc-- " + str(p.returncode).encode() + b"\n")
i = 0
for line in open(cases):
    run(i, json.loads(line)); i += 1
# profiles: add a set of profiles to a file, list and show them
rng = random.Random(7)
pf = "profiles.dat"
names = ["Generic", "Tight", "Loose", "  Spaced  ", "Name With 15chr", "Too long name 16", "", "Tight", "Caf\u00e9", "\u20ac uro", "\u4e2d"]
R = "23456789TJQKA"
for n in names:
    rl = ",".join((lambda a, b: a + b + ("s" if rng.random() < 0.5 and a != b else ""))(*sorted(rng.sample(R, 2), key=R.index, reverse=True)) for _ in range(rng.randint(0, 10)))
    args = ["profiles", "add", n, "--file", pf, "--range", rl]
    if rng.random() < 0.5: args += ["--seen", "AA,KQs"]
    if rng.random() < 0.3: args += ["--range-text", "12.5"]
    run(i, args); i += 1
run(i, ["profiles", "add", "X", "--file", pf]); i += 1
run(i, ["profiles", "list", "--file", pf]); i += 1
for n in names + ["nobody"]:
    run(i, ["profiles", "show", n, "--file", pf]); i += 1
    run(i, ["profiles", "show", n, "--file", pf, "--json"]); i += 1
run(i, ["profiles", "list", "--file", "missing.dat"]); i += 1
run(i, ["profiles", "show", "a", "b", "--file", pf]); i += 1
run(i, ["profiles", "list", "x", "--file", pf]); i += 1
run(i, ["profiles", "list", "--file", pf, "--range", "AA"]); i += 1
run(i, ["profiles", "add", "Y", "--file", pf, "--json"]); i += 1
run(i, ["profiles", "add", "Z", "--range", "AA"]); i += 1   # default file under XDG
run(i, ["profiles", "list"]); i += 1

