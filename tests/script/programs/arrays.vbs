Sub Main()
Dim a(2), b()
a(0) = 1 : a(1) = "t" : a(2) = Array(7, 8)
PrintString a(0) & a(1) & a(2)(1)        '> 1t8
a(2)(0) = 9 : PrintString a(2)(0)        '> 9
c = a : c(0) = 100 : PrintString a(0) & " " & c(0) '> 1 100
d = c : d(0) = 5 : PrintString c(0) & " " & d(0) '> 100 5
d = c : n = 6 : d(0) = n : PrintString c(0) & " " & d(0) '> 100 6
ReDim b(1) : b(1) = "kept" : ReDim Preserve b(4)
PrintString UBound(b) & b(1) & "[" & b(4) & "]" '> 4kept[]
kept = b : ReDim Preserve b(6) : ReDim Preserve kept(1)
PrintString UBound(b) & UBound(kept) & b(1) & kept(1) '> 61keptkept
kept = a : ReDim kept(9) : PrintString UBound(kept) '> 9
ReDim b(2, 3) : b(2, 3) = "corner" : ReDim Preserve b(2, 5)
PrintString b(2, 3) & UBound(b, 2)       '> corner5
Erase b
On Error Resume Next
PrintString UBound(b) : PrintString Err.Number : Err.Clear '> 9
a(3) = 1 : PrintString Err.Number : Err.Clear '> 9
a(-1) = 1 : PrintString Err.Number : Err.Clear '> 9
ReDim a(9) : PrintString Err.Number : Err.Clear '> 10
x = a(0, 0) : PrintString Err.Number : Err.Clear '> 9
n = 5 : x = n(1) : PrintString Err.Number : Err.Clear '> 13
n(1) = 5 : PrintString Err.Number : Err.Clear '> 13
a("1") = "by text" : PrintString a(1) & a(1.4) '> by textby text
a(0.5) = "half to even" : PrintString a(0) '> half to even
Erase a : PrintString "[" & a(0) & "]" & UBound(a) '> []2
ReDim Preserve c(0) : PrintString c(0)   '> 100
f = made() : f(1) = "own copy" : PrintString f(0) & f(1) : Err.Clear '> pown copy
ReDim e(-1) : PrintString UBound(e) & Err.Number '> -10
ReDim e(-2) : PrintString Err.Number     '> 9
dimmed : dimmed : m = Array() : PrintString UBound(m) '> -1
ReDim g(1) : g(0) = g : g(1) = "outer" : PrintString TypeName(g(0)(1)) '> Empty
End Sub
Function made()
made = Array("p", "q")
End Function
Sub dimmed
Dim d(1)
If d(0) <> "" Then PrintString "left over"
d(0) = "x"
End Sub
