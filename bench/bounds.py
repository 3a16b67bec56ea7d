#!/usr/bin/env python3
"""usage: bench/bounds.py BUILD_DIRECTORY OUTPUT.csv [ENTRY]...

The limit of every kernel by llvm-mca: cycles for the instructions that a call on ordinary arguments executes, called
over and over on independent arguments.

zelk-bench --traces single-steps the calls, objdump turns the addresses into instructions. Of the simulation, `bound`
is what the processor's units and its width allow, `simulated` what its dependency chains and buffers leave of that.
ZELK_MCU names the processor model (default: znver3, the newest AMD one of LLVM 14).
"""
import csv
import os
import re
import subprocess
import sys


def disassembly(library):
    listing = subprocess.run(["objdump", "-d", "--no-show-raw-insn", library], check=True, text=True,
                             capture_output=True).stdout
    instructions = {}
    for line in listing.splitlines():
        match = re.match(r"\s*([0-9a-f]+):\s+(.*)", line)
        if match:
            text = re.sub(r"\s*(#.*|<.*>)", "", match[2]).strip()
            # The models have no figures worth the name for calls, returns and landing pads; padding may have
            # forms that the assembler does not know.
            text = "nop" if re.search(r"nop|^(endbr|ret|call|jmp|leave)", text) else text
            instructions[int(match[1], 16)] = re.sub(r"^(j\w+)\s+([0-9a-f]+)$", r"\1 0x\2", text)
    return instructions


def listing_of(kernel, addresses, instructions):
    """The loop of a caller around a traced call."""
    load = "movaps (%rsi), %xmm0\nmovaps (%rdx), %xmm1"
    store = "movaps %xmm0, (%rdi)"
    body = "\n".join(instructions[address] for address in addresses)
    return f"# LLVM-MCA-BEGIN {kernel}\n{load}\n{body}\n{store}\n# LLVM-MCA-END {kernel}\n"


def main():
    build, output, *names = sys.argv[1:]
    traces = os.path.join(build, "traces.txt")
    subprocess.run([os.path.join(build, "bin/zelk-bench"), "--traces", traces, *names], check=True)
    instructions = disassembly(os.path.join(build, "lib/libzelk.so"))
    kernels = {}
    with open(traces) as lines:
        for line in lines:
            kernel, *addresses = line.split()
            kernels[kernel] = [int(address, 16) for address in addresses]
    source = os.path.join(build, "traces.s")
    with open(source, "w") as file:
        for kernel, addresses in kernels.items():
            file.write(listing_of(kernel, addresses, instructions))
    model = os.environ.get("ZELK_MCU", "znver3")
    simulation = subprocess.run(["llvm-mca", f"-mcpu={model}", "-iterations=100", "-summary-view",
                                 "-instruction-info=0", "-resource-pressure=0", source], check=True, text=True,
                                stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    with open(output, "w", newline="") as file:
        table = csv.writer(file, lineterminator="\n")
        table.writerow(["kernel", "instructions", "bound", "simulated"])
        for region in re.split(r"\[\d+\] Code Region - ", simulation)[1:]:
            kernel = region.split()[0]
            value = {key: float(number) for key, number in re.findall(r"^(.+?):\s+([\d.]+)$", region, re.M)}
            table.writerow([kernel, len(kernels[kernel]), value["Block RThroughput"],
                            round(value["Total Cycles"] / value["Iterations"], 1)])


main()
