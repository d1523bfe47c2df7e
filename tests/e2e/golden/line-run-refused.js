// The runs of this folder, for compare.html beside it. Written by Kelvarnite UT2k3 Benchmark after every run.
kelvarniteIndex({"format": 1, "name": "YYYYMMDD-hhmmss high", "program": "2.1.0", "planned": 2, "stopped": "repeat 1 was refused", "runs": [
]});
