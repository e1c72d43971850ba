Sub Main()
if not parentform.checkforevents then err.raise 1001
parentform.PrintString fib(30)
End Sub


Function fib(n)
if not parentform.checkforevents then err.raise 1001
IF n < 2 THEN
if not parentform.checkforevents then err.raise 1001
fib = n
if not parentform.checkforevents then err.raise 1001
ELSE
if not parentform.checkforevents then err.raise 1001
fib = fib(n - 1) + fib(n - 2)
if not parentform.checkforevents then err.raise 1001
END IF
if not parentform.checkforevents then err.raise 1001
End Function
