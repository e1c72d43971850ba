' Code in texts.
Dim shared
shared = "module"
Execute "made = 5 : shared = shared & ""!"""
PrintString made & shared                '> 5module!
Function local(p)
Dim v
v = 2
Execute "v = v + p : fresh = v * 10"
Execute "fresh = fresh + 1"
PrintString Eval("v & fresh")            '> 331
p = Eval("p + 41")
local = v
End Function
n = 1
PrintString local(n) & n                 '> 342
PrintString Eval("1 +") & "x"
'> error 1023 line 17
