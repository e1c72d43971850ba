' Texts that grow where they are still behave as copies.
Dim g, h
Sub Main()
a = "a" : b = a : a = a & "1" & "2" : PrintString a & b '> a12a
a = a & a & a : PrintString a     '> a12a12a12
g = "g" : h = g : g = g & 1 & True : PrintString g & h '> g1Trueg
g = g & h & g : PrintString g     '> g1Truegg1True
x = "x" : grow x, x : PrintString x '> xxx
grow x, "y" : PrintString x       '> xxxyy
n = n & "from Empty" : PrintString n '> from Empty
m = Null : m = m & Null : PrintString TypeName(m) '> Null
m = m & "text" & Null : PrintString m '> text
n = Null : m = m & n : PrintString m '> text
k = 5 : k = k & 6 : PrintString k & TypeName(k) '> 56String
g = "g" : g = g & change() : PrintString g '> gc
Dim list(1)
list(0) = "l" : s = list(0) : s = s & "more" : PrintString list(0) & s '> llmore
PrintString result(3)             '> .123
On Error Resume Next
s = "kept" : s = s & "half" & list : PrintString s '> kept
s = s & g & change() & g : PrintString s '> keptgccchanged
End Sub
Sub grow(t, u)
t = t & u & u
End Sub
Function change()
g = "changed" : change = "c"
End Function
Function result(n)
result = "." : For i = 1 To n : result = result & i
Next
End Function
